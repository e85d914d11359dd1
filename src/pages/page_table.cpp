#include "pages/page_table.h"

namespace panel {
namespace {

StreamPlace readPlace(std::uint32_t address) { return {ReadU32(address), ReadU16(address + 4)}; }

} // namespace

StreamPlace DisplayStreamPlace(std::uint16_t page) {
    return readPlace(Sections.PageTable + PageRowBytes * page);
}
StreamPlace TouchStreamPlace(std::uint16_t page) {
    return readPlace(Sections.PageTable + PageRowBytes * page + 6);
}
StreamPlace GroupStreamPlace(std::uint16_t page) {
    return readPlace(Sections.GroupStreamTable + GroupRowBytes * page);
}

} // namespace panel
