// The pictures that the engine paints on. All are Format_ARGB32_Premultiplied and belong to the engine
// thread, but for the OverlaySurface.
#pragma once

#include <QImage>
#include <QSize>

#include <string_view>

namespace panel {

inline QImage PageBackground;      // clean copy of the page's background picture
inline QImage FrameSurface;        // the picture of the panel, handed over every cycle
inline QImage WorkSurface;         // where a widget composes before it lands on the frame
inline QImage BaseSurface;         // PageBackground with the page's background widget in it
inline QImage SlideSurface;        // three pages side by side during a slide
inline QImage TextSurface;         // underlay of the text engine
inline QImage PopupSaveSurface;    // the frame as it was under a pop-up
inline QImage ImageScratchSurface; // picture of image format 11, 32 bits a pixel, as PngPicture() gives it
inline QImage OverlaySurface;      // the camera picture; shared as widgets/display/group_clock.h tells
inline QImage ListSurfaceA;        // the sliding list: null until a page has one
inline QImage ListSurfaceB;

/// Makes the first nine surfaces for a panel of `size` pixels: frame and page background black, the others
/// transparent. The list surfaces become null.
void MakeSurfaces(QSize size);

/// The surface of that name ("FrameSurface"), or nullptr when there is none.
QImage* FindSurface(std::string_view name);

} // namespace panel
