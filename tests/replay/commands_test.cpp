#include "replay/command_error.h"
#include "replay/commands.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace replay;

TEST(CommandTable, TakesWhatIsWellFormed) {
    for (const char* line :
         {"run 86400000", "cycle 0x10", "press -5 900", "drag -65535 0 65535 500 86400000", "read 0x70fe",
          "read 0 28927", "write 0x70fe 0xFFFF", "write 0xC001 7", "set 0x5fff -32768", "set 0x7000 65535",
          "host 0510 70 00 0001", "frame A.PNG WorkSurface", "expect pixel 1 2 #8000A2ff", "expect sent 41ff",
          "expect frame a.png 5", "await 500 region 1 2 a.png 3", "run 10 # pass a tick"})
        EXPECT_TRUE(PrepareLine(line)) << line;
    for (const char* line : {"", "   ", "# run", "#"}) EXPECT_FALSE(PrepareLine(line)) << line;
}

TEST(CommandTable, RefusesTheRestWithAReason) {
    // A line, and a part of the reason.
    const std::pair<const char*, const char*> cases[] = {
        {"rnu 10", "no such command: rnu"},
        {"run", "MS is missing"},
        {"run 10 20", "too many words: 20"},
        {"run 86400010", "to 86400000"},
        {"run 99999999999999999999999999", "MS must be a number"},
        {"run 1e3", "MS must be a number"},
        {"cycle 0", "from 1"},
        {"drag 0 0 9 9 30", "multiple of 20"},
        {"key up", "must be one of right left 1 2 3 other, not up"},
        {"read 0x70ff", "below 0x70ff"},
        {"read 0x70fe 2", "from 1 to 1"},
        {"write 0x70fe 1 2", "out of reach of a host"},
        {"set 0x6000 1", "out of reach of the inspector"},
        {"set 1 65536", "to 65535"},
        {"text 0x6000 gbk a", "below 0x6000"},
        {"text 0 latin1 a", "must be one of gb2312"},
        {"text 0 gbk \"\"", "empty"},
        {"text 0 big5 \xE2\x98\x83", "cannot hold 1 character"},
        {"host 1", "two hexadecimal digits"},
        {"frame a.jpg", "must end in .png"},
        {"frame a.png Frame", "no such surface: Frame"},
        {"expect", "is missing"},
        {"expect colour 1", "one of word page pixel sent frame region, not colour"},
        {"expect pixel 1 2 #f00", "#RRGGBB"},
        {"await 10 sent 41", "cannot be awaited"},
    };
    for (const auto& [line, reason] : cases) {
        try {
            PrepareLine(line);
            ADD_FAILURE() << line << " was taken";
        } catch (const CommandError& error) {
            EXPECT_NE(std::string(error.what()).find(reason), std::string::npos)
                << line << ": " << error.what();
        }
    }
    EXPECT_THROW(PrepareLine("write 0" + QString(" 1").repeated(126)), CommandError);
}

} // namespace
