#include "replay/command_error.h"
#include "replay/commands.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace replay;

TEST(CommandTable, TakesWhatIsWellFormed) {
    for (const char* line : {"run 10",
                             "run 86400000",
                             "tick",
                             "tick 3",
                             "cycle 0x10",
                             "press -5 900",
                             "move 0 0",
                             "release",
                             "tap 1 2",
                             "drag -65535 0 65535 500 86400000",
                             "key right",
                             "key 3",
                             "read 0",
                             "read 0x70fe",
                             "read 0 28927",
                             "write 0x70fe 0xFFFF",
                             "write 5 1 2 -1",
                             "write 0xC001 7",
                             "set 0x5fff -32768",
                             "set 0x7000 65535",
                             "text 0x100 utf-8 \"a b\"",
                             "host 0510 70 00 0001",
                             "sent",
                             "media",
                             "state",
                             "pixel 0 0",
                             "frame a.png",
                             "frame A.PNG WorkSurface",
                             "view a.png",
                             "load x.bin",
                             "expect pixel 1 2 #00A2ff",
                             "expect pixel 1 2 #8000A2ff",
                             "expect word 1 2",
                             "expect page 0",
                             "expect sent 41ff",
                             "expect sent none",
                             "expect frame a.png 5",
                             "expect region 1 2 a.png",
                             "await 10 page 1",
                             "await 500 region 1 2 a.png 3",
                             "hash",
                             "run 10 # pass a tick"})
        EXPECT_TRUE(PrepareLine(line)) << line;
    for (const char* line : {"", "   ", "# run", "#"}) EXPECT_FALSE(PrepareLine(line)) << line;
}

struct RefusedCase {
    const char* line;
    const char* message; // a part of it
};

TEST(CommandTable, RefusesTheRestWithAReason) {
    const RefusedCase cases[] = {
        {"rnu 10", "no such command: rnu"},
        {"run", "MS is missing"},
        {"run 10 20", "too many words: 20"},
        {"run ten", "MS must be a number"},
        {"run 15", "multiple of 10, not 15"},
        {"run -10", "from 10"},
        {"run 86400010", "to 86400000"},
        {"run 99999999999999999999999999", "MS must be a number"},
        {"run \" 10\"", "MS must be a number"},
        {"run 1e3", "MS must be a number"},
        {"cycle 0", "from 1"},
        {"press 1", "Y is missing"},
        {"drag 0 0 9 9 30", "multiple of 20"},
        {"key up", "must be one of right left 1 2 3, not up"},
        {"read 0x70ff", "below 0x70ff"},
        {"read 0x70fe 2", "from 1 to 1"},
        {"write 5", "WORD is missing"},
        {"write 0x70fe 1 2", "out of reach of a host"},
        {"write 0x9000 1", "out of reach of a host"},
        {"set 0x6000 1", "out of reach of the inspector"},
        {"set 0x70ff 1", "out of reach of the inspector"},
        {"set 1 65536", "to 65535"},
        {"text 0x6000 gbk a", "below 0x6000"},
        {"text 0 latin1 a", "must be one of gb2312"},
        {"text 0 gbk \"\"", "empty"},
        {"text 0 big5 \xE2\x98\x83", "cannot hold 1 character"},
        {"host 1", "two hexadecimal digits"},
        {"pixel -1 0", "from 0"},
        {"frame a.jpg", "must end in .png"},
        {"frame a.png Frame", "no such surface: Frame"},
        {"load", "IMAGE.bin is missing"},
        {"expect", "is missing"},
        {"expect colour 1", "one of word page pixel sent frame region, not colour"},
        {"expect pixel 1 2 ff0000", "#RRGGBB"},
        {"expect pixel 1 2 #f00", "#RRGGBB"},
        {"expect frame a.png -1", "from 0"},
        {"await 10 sent 41", "cannot be awaited"},
        {"state now", "too many words"},
    };
    for (const RefusedCase& refused : cases) {
        try {
            PrepareLine(refused.line);
            ADD_FAILURE() << refused.line << " was taken";
        } catch (const CommandError& error) {
            EXPECT_NE(std::string(error.what()).find(refused.message), std::string::npos)
                << refused.line << ": " << error.what();
        }
    }
    std::string longWrite = "write 0";
    for (int i = 0; i < 126; ++i) longWrite += " 1";
    EXPECT_THROW(PrepareLine(QString::fromStdString(longWrite)), CommandError);
}

} // namespace
