// The pictures of bars, rings, dials and clocks.
#pragma once

#include <QImage>
#include <QSize>

namespace demo {

/// A full bar of the week's chart.
QImage DayBarPicture(QSize size);

} // namespace demo
