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
    std::uint32_t page = 0;
    for (const std::uint32_t pages = WholePageRows(); page < pages && !findings.areTooMany(); ++page) {
        data.checkPageImage(static_cast<std::uint16_t>(page));
        PageCheck(findings, records, static_cast<std::uint16_t>(page)).check();
    }
    if (findings.areTooMany())
        findings.error({.subject = "head"}, "after so many findings the check ends before page %u", page);
    else
        data.check();
    return findings.finish();
}

} // namespace check
