#include "inspector/raw_bytes.h"

#include "store/system_words.h"
#include "store/variable_store.h"

#include <cctype>
#include <cstddef>

namespace inspector {
namespace {

class RawScanner {
public:
    explicit RawScanner(const QByteArray& text) : text_(text) {}

    QByteArray scan() {
        for (at_ = 0; at_ < text_.size() && text_[at_] != '/' && !broken_; ++at_) take(text_[at_]);
        endRun();
        return broken_ ? QByteArray() : bytes_;
    }

private:
    void take(char character) {
        if (character == '"')
            takeLiteral();
        else if (character == ' ')
            endRun();
        else if (std::isxdigit(static_cast<unsigned char>(character)) != 0)
            run_ += character;
    }

    /// A literal that is not closed reaches to the end.
    void takeLiteral() {
        endRun();
        const int end = text_.indexOf('"', at_ + 1);
        const int stop = end < 0 ? text_.size() : end;
        bytes_ += text_.mid(at_ + 1, stop - at_ - 1);
        at_ = stop;
    }

    void endRun() {
        broken_ = broken_ || run_.size() % 2 != 0;
        bytes_ += QByteArray::fromHex(run_);
        run_.clear();
    }

    const QByteArray text_;
    int at_ = 0;
    QByteArray run_; // digits since the last blank or literal
    QByteArray bytes_;
    bool broken_ = false;
};

} // namespace

QByteArray ParseRawBytes(const QString& text) { return RawScanner(text.toUtf8()).scan(); }

void WriteRawBytes(std::uint32_t address, const QByteArray& bytes, bool isText) {
    if (address >= panel::StoreWordCount) return;
    const auto word = static_cast<std::uint16_t>(address);
    const std::size_t start = 2 * std::size_t{word};
    const auto count = static_cast<std::size_t>(bytes.size());
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t offset = isText ? start + count - i : start + i;
        panel::StoreByte(offset, static_cast<std::uint8_t>(bytes[static_cast<int>(i)]));
        if (panel::SystemRange(word)) panel::ApplySystemWordFromMainThread(word);
    }
}

} // namespace inspector
