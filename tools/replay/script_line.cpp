#include "replay/script_line.h"

#include "replay/command_error.h"

#include <QTextCodec>

#include <algorithm>

namespace replay {
namespace {

/// Takes words off a line, one after another.
class WordSplitter {
public:
    explicit WordSplitter(const QString& line) : line_(line) {}

    /// The next word, or nothing at the end of the line or at a comment.
    std::optional<QString> next() {
        while (at_ < line_.size() && line_[at_].isSpace()) ++at_;
        if (at_ == line_.size() || atComment()) return std::nullopt;
        first_ = false;
        return line_[at_] == '"' ? quoted() : plain();
    }

private:
    bool atComment() const { return line_[at_] == '#' && (first_ || wordEndsAt(at_ + 1)); }
    bool wordEndsAt(int at) const { return at == line_.size() || line_[at].isSpace(); }

    QString plain() {
        const int start = at_;
        while (!wordEndsAt(at_)) ++at_;
        const QString word = line_.mid(start, at_ - start);
        if (word.contains('"')) throw CommandError("a double quote may only begin and end a word: " + word);
        return word;
    }

    QString quoted() {
        QString word;
        for (++at_; at_ < line_.size(); ++at_) {
            if (line_[at_] != '"') {
                word += line_[at_];
            } else if (at_ + 1 < line_.size() && line_[at_ + 1] == '"') {
                word += line_[at_++];
            } else {
                if (!wordEndsAt(++at_))
                    throw CommandError("a blank is missing behind a closing double quote");
                return word;
            }
        }
        throw CommandError("a double quote is not closed");
    }

    const QString& line_;
    int at_ = 0;
    bool first_ = true;
};

bool isControl(QChar character) { return character.category() == QChar::Other_Control && character != '\t'; }

} // namespace

std::optional<QByteArray> ReadScriptLine(std::istream& input) {
    QByteArray line;
    char byte = 0;
    bool any = false;
    while (input.get(byte)) {
        any = true;
        if (byte == '\n') break;
        if (line.size() == LargestLineBytes) throw CommandError("the line is too long for a script");
        line += byte;
    }
    if (input.bad()) throw CommandError("the script cannot be read");
    return any ? std::optional(line) : std::nullopt;
}

QString DecodeScriptLine(const QByteArray& bytes) {
    static QTextCodec* const utf8 = QTextCodec::codecForName("UTF-8");
    QTextCodec::ConverterState state;
    QString text = utf8->toUnicode(bytes.constData(), bytes.size(), &state);
    if (state.invalidChars != 0 || state.remainingChars != 0)
        throw CommandError("the line is not UTF-8 text");
    if (text.endsWith('\r')) text.chop(1);
    if (std::any_of(text.begin(), text.end(), isControl))
        throw CommandError("the line holds control characters");
    return text;
}

QStringList SplitScriptLine(const QString& line) {
    QStringList words;
    WordSplitter splitter(line);
    while (const auto word = splitter.next()) words += *word;
    return words;
}

} // namespace replay
