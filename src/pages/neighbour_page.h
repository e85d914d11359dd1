// Pictures of pages that are not on show, for a page that slides between them. Engine thread.
#pragma once

#include <cstdint>

namespace panel {

/// Draws a page on the FrameSurface with the widgets that stand still, without making it the page on show for
/// good; one at or above PageCount draws nothing. Tables, streams and CurrentPage are those of that page
/// until ReturnFromNeighbours().
void RenderNeighbourPage(std::uint16_t page);

/// Forgets what the neighbours have left behind and draws the picture of the page on show, whose widgets are
/// drawn next.
void ReturnFromNeighbours(std::uint16_t page);

} // namespace panel
