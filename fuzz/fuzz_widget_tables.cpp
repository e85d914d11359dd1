// The two CSV tables of an image, the first up to a zero byte. To each row's variable the inspector writes
// the row's texts as if a person had typed them, and reads it again.
#include "inspector/typed_access.h"
#include "inspector/widget_tables.h"
#include "store/variable_store.h"

#include <QByteArray>

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>
#include <vector>

namespace {

/// Takes back what it wrote when it goes, as the next input must not read it.
class Writer : public inspector::VariableWriter {
public:
    ~Writer() override {
        static constexpr std::array<std::uint8_t, panel::StoreByteCount> zeros{};
        for (const auto& [first, count] : written_) panel::StoreBytes(first, std::span(zeros).first(count));
    }
    void writeVar(std::uint32_t address, const QString& text, int typeIndex, int encodeIndex) override {
        remember(address, 4 * text.size() + 8); // more than any encoding or number takes
        VariableWriter::writeVar(address, text, typeIndex, encodeIndex);
    }
    void writeRaw(std::uint32_t address, const QByteArray& bytes, bool isText) override {
        remember(address, bytes.size());
        VariableWriter::writeRaw(address, bytes, isText);
    }

private:
    void remember(std::uint32_t address, int byteCount) {
        written_.emplace_back(2 * std::size_t{address},
                              std::min(static_cast<std::size_t>(byteCount), panel::StoreByteCount));
    }
    std::vector<std::pair<std::size_t, std::size_t>> written_; // first byte and count
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const int zero = bytes.indexOf('\0');
    const QString touch = QString::fromUtf8(bytes.left(zero));
    const QString display = QString::fromUtf8(zero < 0 ? QByteArray() : bytes.mid(zero + 1));
    Writer writer;
    for (const inspector::WidgetRow& row : inspector::ReadWidgetTables(touch, display)) {
        const inspector::Variable variable{row.address, row.typeIndex, row.encodeIndex};
        for (const QString& typed : {row.description, row.widgetName}) {
            inspector::WriteTyped(variable, typed, inspector::HexDigits::FilledUp, writer);
            inspector::ReadCommandText(inspector::ReadTyped(variable), variable);
        }
    }
    return 0;
}
