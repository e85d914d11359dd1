// The numbered files beside an image. Engine thread, but for SetMediaDirectory().
#pragma once

#include <QString>

namespace panel {

/// A number as media files bear it: four digits or more.
QString MediaNumber(int number);

// The folders of the media directory.
inline constexpr char MusicFolder[] = "Music";
inline constexpr char VideoFolder[] = "Video";

/// The path of the last file in a folder of the media directory ("Music", "Video") whose base name holds
/// `name`, in the order of the file system; the folder itself when there is none. The name is only compared,
/// so nothing leads out of the folder.
QString FindMediaFile(const QString& folder, const QString& name);

} // namespace panel
