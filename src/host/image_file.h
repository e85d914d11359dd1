// Reading an image file into the FlashImage.
#pragma once

class QString;

namespace panel {

/// Replaces the FlashImage by the file, forgets what stayed of the image before, and tests the integrity of
/// the new one. Main thread, while no engine runs. False when the path is no regular file of at most 2 GiB -
/// 1 that can be read whole; there is no image then. An image that fails the test is loaded, and IllegalImage
/// tells.
bool ReadImageFile(const QString& path);

} // namespace panel
