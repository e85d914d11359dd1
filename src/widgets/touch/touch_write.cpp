#include "widgets/touch/touch_write.h"

#include "pages/page_switch.h"
#include "pages/refresh.h"
#include "store/system_words.h"
#include "store/variable_store.h"

namespace panel {

void PassOnWrite(std::uint16_t address) {
    if (SystemRange(address))
        ApplySystemWord(address);
    else
        RefreshPageWidgets(CurrentPage);
}

void PassOnInput(std::uint16_t address) {
    if (SystemRange(address)) ApplySystemWord(address);
    RefreshAfterTouch(CurrentPage);
}

} // namespace panel
