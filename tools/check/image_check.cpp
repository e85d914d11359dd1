#include "check/image_check.h"

#include "check/data_check.h"
#include "check/head_check.h"
#include "check/media_check.h"
#include "check/page_check.h"
#include "check/record_check.h"
#include "host/config_block.h"

#include <memory>

namespace check {

Report CheckImage(const std::optional<QString>& mediaDirectory) {
    panel::LoadConfigBlock();
    Findings findings;
    const auto usage = std::make_unique<Usage>();
    MediaFiles media(mediaDirectory);
    RecordCheck records(findings, *usage, media);
    DataCheck data(findings, *usage);

    CheckHead(findings);
    const std::uint32_t pages = WholePageRows();
    for (std::uint32_t number = 0; number < pages; ++number) {
        const auto page = static_cast<std::uint16_t>(number);
        data.checkPageImage(page);
        PageCheck(findings, records, page).check();
    }
    data.check();
    return findings.finish();
}

} // namespace check
