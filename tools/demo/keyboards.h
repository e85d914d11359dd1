// The keyboards of the demo: a keypad for numbers, one for texts and one for Chinese by its pinyin, each a
// page with its keys at rest and one with all of them pressed.
#pragma once

#include "demo/canvas.h"
#include "demo/project.h"

#include "imagekit/image_builder.h"

namespace demo {

Art PaintKeypad(bool pressed);
Art PaintTextKeyboard(bool pressed);
Art PaintChineseKeyboard(bool pressed);

/// A font in which texts are typed.
struct EntryFont {
    std::uint8_t index, width, height;
};
/// Of single bytes, for numbers and the PIN.
EntryFont AddEntryFont(imagekit::ImageBuilder& image, const TextStyle& style);
/// In GBK: all that the Chinese keyboard can type.
EntryFont AddNameFont(imagekit::ImageBuilder& image);

/// Adds the keys to the keyboards' pages, and the fields that open them.
void AddKeyboards(imagekit::ImageBuilder& image, const EntryFont& nameFont);

} // namespace demo
