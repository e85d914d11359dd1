#include "replay/command_error.h"
#include "replay/script_line.h"

#include <gtest/gtest.h>

#include <ostream>
#include <sstream>
#include <string>
#include <vector>

namespace {

using namespace replay;

struct LineCase {
    const char* name;
    const char* line;
    std::vector<std::string> words;
};
std::ostream& operator<<(std::ostream& out, const LineCase& row) { return out << row.name; }

class ScriptLines : public ::testing::TestWithParam<LineCase> {};

TEST_P(ScriptLines, FallIntoWords) {
    std::vector<std::string> words;
    for (const QString& word : SplitScriptLine(GetParam().line)) words.push_back(word.toStdString());
    EXPECT_EQ(words, GetParam().words);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, ScriptLines,
    ::testing::Values(LineCase{"Empty", "", {}}, LineCase{"Blanks", " \t ", {}},
                      LineCase{"Words", "  tap\t1   2 ", {"tap", "1", "2"}},
                      LineCase{"CommentLine", "#tap 1 2", {}}, LineCase{"IndentedComment", "  #tap", {}},
                      LineCase{"CommentBehind", "tap 1 # 2", {"tap", "1"}},
                      LineCase{"CommentAtTheEnd", "tap 1 #", {"tap", "1"}},
                      LineCase{"ColourIsAWord", "pixel 1 #ff0000 2", {"pixel", "1", "#ff0000", "2"}},
                      LineCase{"SignInsideAWord", "a#b c#", {"a#b", "c#"}},
                      LineCase{"QuotedBlanks", "text \"a  b\" c", {"text", "a  b", "c"}},
                      LineCase{"QuotedNothing", "text \"\"", {"text", ""}},
                      LineCase{"QuotedSign", "text \"#\"", {"text", "#"}},
                      LineCase{"DoubledQuote", "\"say \"\"hi\"\"\" x", {"say \"hi\"", "x"}},
                      LineCase{"OneQuote", "\"\"\"\"", {"\""}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(ScriptLine, RefusesQuotesThatAreNotClosedOrInsideAWord) {
    for (const char* line : {"\"", "text \"a b", "\"\"\"", "a\"b", "a\"", "\"a\"b"})
        EXPECT_THROW(SplitScriptLine(line), CommandError) << line;
}

TEST(ScriptLine, IsTextInUtf8) {
    EXPECT_EQ(DecodeScriptLine("text \xE4\xB8\xAD\r"), QString("text ") + QChar(0x4E2D));
    EXPECT_EQ(DecodeScriptLine("\xEF\xBB\xBFrun 10"), "run 10") << "byte-order mark";
    for (const QByteArray& bytes : {QByteArray("\xFF\xFE"), QByteArray("\xE4\xB8"), QByteArray("a\0b", 3),
                                    QByteArray("a\x1B[0m"), QByteArray("a\rb")})
        EXPECT_THROW(DecodeScriptLine(bytes), CommandError) << bytes.toHex().toStdString();
}

TEST(ScriptLine, EndsAtALineFeedOrAtTheEndOfTheInput) {
    std::istringstream input("one\n\ntwo");
    EXPECT_EQ(ReadScriptLine(input), QByteArray("one"));
    EXPECT_EQ(ReadScriptLine(input), QByteArray(""));
    EXPECT_EQ(ReadScriptLine(input), QByteArray("two"));
    EXPECT_EQ(ReadScriptLine(input), std::nullopt);
}

TEST(ScriptLine, HasABoundedLength) {
    std::istringstream fits(std::string(LargestLineBytes, 'x') + '\n');
    EXPECT_EQ(ReadScriptLine(fits)->size(), LargestLineBytes);
    std::istringstream tooLong(std::string(LargestLineBytes + 1, 'x'));
    EXPECT_THROW(ReadScriptLine(tooLong), CommandError);
}

} // namespace
