// Brings the ShadowStore in line with what a widget's record depends on, so that a widget that is shown now
// does not count as changed at the next refresh. One routine for each way in which a kind depends on the
// store. Engine thread.
#pragma once

#include "pages/parameters.h"

namespace panel {

/// The parameter block of a record in the pointer form.
void SyncBlock(const Parameters& p);

void SyncValueWord(const Parameters& p); // the word whose address stands at offset 5
void SyncLabel(const Parameters& p);     // its text, up to the first zero word
void SyncNumber(const Parameters& p);    // value by its data type, and hide word
void SyncPngNumber(const Parameters& p);
void SyncQrText(const Parameters& p); // its text, up to the first pair of zero bytes
void SyncTextroll(const Parameters& p);

} // namespace panel
