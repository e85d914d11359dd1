#include "pages/page_table.h"

namespace panel {
namespace {

constexpr std::uint32_t PageRowBytes = 12; // display stream, then touch stream
constexpr std::uint32_t GroupRowBytes = 6;

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
