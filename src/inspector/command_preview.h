// Two settings of the loaded image that shape the command texts of the inspector.
#pragma once

#include <QString>

namespace inspector {

// Set at each load by the view of the image's settings, read by the command texts. Main thread.

/// The two bytes that every command begins with, as four hexadecimal digits; empty without an image.
inline QString PreviewHeader;
/// 1: commands carry no check bytes.
inline int PreviewNoCrc = 0;

} // namespace inspector
