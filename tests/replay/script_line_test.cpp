#include "replay/command_error.h"
#include "replay/script_line.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <utility>

namespace {

using namespace replay;

TEST(ScriptLine, FallsIntoWords) {
    const std::pair<const char*, QStringList> cases[] = {
        {" \t ", {}},
        {"  tap\t1   2 ", {"tap", "1", "2"}},
        {"  #tap", {}},
        {"tap 1 # 2", {"tap", "1"}},
        {"tap 1 #", {"tap", "1"}},
        {"pixel 1 #ff0000 2", {"pixel", "1", "#ff0000", "2"}},
        {"a#b c#", {"a#b", "c#"}},
        {"text \"a  b\" \"\" \"#\"", {"text", "a  b", "", "#"}},
        {"\"say \"\"hi\"\"\" \"\"\"\"", {"say \"hi\"", "\""}}};
    for (const auto& [line, words] : cases) EXPECT_EQ(QStringList(SplitScriptLine(line)), words) << line;
}

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

TEST(ScriptLine, EndsAtALineFeedOrTheEndOfTheInputAndHasABoundedLength) {
    std::istringstream input("one\n\ntwo");
    for (const char* line : {"one", "", "two"}) EXPECT_EQ(ReadScriptLine(input), QByteArray(line));
    EXPECT_EQ(ReadScriptLine(input), std::nullopt);
    std::istringstream fits(std::string(LargestLineBytes, 'x') + '\n');
    EXPECT_EQ(ReadScriptLine(fits)->size(), LargestLineBytes);
    std::istringstream tooLong(std::string(LargestLineBytes + 1, 'x'));
    EXPECT_THROW(ReadScriptLine(tooLong), CommandError);
}

} // namespace
