#include "inspector/command_preview.h"
#include "inspector/command_text.h"
#include "inspector/raw_bytes.h"
#include "inspector/typed_access.h"
#include "store/backlight.h"
#include "store/system_words.h"
#include "store/variable_store.h"
#include "store/variable_value.h"

#include <gtest/gtest.h>

namespace {

inspector::VariableWriter Store;

using namespace inspector;

TEST(Crc, IsThatOfModbus) {
    EXPECT_EQ(CommandCrc("313233343536373839"), "374B"); // 0x4B37, low byte first
    EXPECT_EQ(CommandCrc("0103000A0001"), "A408");       // a well-known frame
    EXPECT_EQ(CommandCrc(""), "FFFF");
    EXPECT_EQ(CommandCrc("1"), "FFFF") << "half a byte does not count";
    EXPECT_EQ(CommandCrc("g1"), CommandCrc("01"));
}

constexpr int Text = panel::value_type::String;

TEST(WriteCommands, ShowWhatWouldDoTheSame) {
    const struct {
        const char* name;
        Variable variable;
        const char* typed; // UTF-8
        const char *length, *lengthWithCrc;
        const char* items;
        HexDigits hexDigits = HexDigits::FilledUp;
    } cases[] = {
        {"short", {"0x1000", 1, 0}, "258", "05", "07", "10 1000 0102"},
        {"negative short", {"0x1000", 1, 0}, "-1", "05", "07", "10 1000 FFFF"},
        {"longlong", {"0x0ABC", 6, 0}, "-2", "0B", "0D", "10 0ABC FFFFFFFFFFFFFFFE"},
        {"address as typed", {"0xab1c", 3, 0}, "255", "05", "07", "10 ab1c 00FF"},
        {"hex in the panel", {"0x1000", 1, 0}, "0x10", "05", "07", "10 1000 0010"},
        {"hex in a row", {"0x1000", 1, 0}, "0X1 0", "04", "06", "10 1000 10", HexDigits::AsTyped},
        {"three bytes of GBK", {"0x1000", Text, 1}, "a中", "07", "09", "10 1000 61D6D000"},
        {"four bytes of GB2312", {"0x1000", Text, 0}, "abcd", "09", "0B", "10 1000 616263640000"},
        {"Big5 travels as GBK", {"0x1000", Text, 2}, "中", "07", "09", "10 1000 D6D00000"},
        {"Unicode", {"0x1000", Text, 3}, "a中", "09", "0B", "10 1000 00614E2D0000"},
        {"UTF-8", {"0x1000", Text, 4}, "中", "07", "09", "10 1000 E4B8AD00"},
        {"text as hex", {"0x1000", Text, 1}, "0xD6D0", "07", "09", "10 1000 D6D00000"},
        {"long text",
         {"0x1000", Text, 4},
         "0123456789abcdefghijk",
         "19",
         "1b",
         "10 1000 303132333435363738396162636465666768696A6B00"},
    };
    PreviewHeader = "5AA5";
    for (const auto& test : cases) {
        const auto command = [&] {
            return WriteTyped(test.variable, QString::fromUtf8(test.typed), test.hexDigits, Store);
        };
        const QString items = test.items, crc = CommandCrc(QString(items).remove(' '));
        PreviewNoCrc = 0;
        EXPECT_EQ(command(), QString("5AA5 %1 %2 %3").arg(test.lengthWithCrc, items, crc)) << test.name;
        PreviewNoCrc = 1;
        EXPECT_EQ(command(), QString("5AA5 %1 %2").arg(test.length, items)) << test.name;
    }
}

TEST(ReadCommand, CountsWords) {
    PreviewNoCrc = 1;
    const auto command = [](const char* value, int type, int encoding) {
        return ReadCommandText(QString::fromUtf8(value), {"0x1000", type, encoding});
    };
    EXPECT_EQ(command("200", 0, 0), "05 03 1000 0001") << "no header without an image";
    EXPECT_EQ(command("7", 6, 0), "05 03 1000 0004");
    EXPECT_EQ(command("a中", Text, 1), "05 03 1000 0002");
    EXPECT_EQ(command("abcd", Text, 1), "05 03 1000 0003");
    EXPECT_EQ(command("a中", Text, 3), "05 03 1000 0003");
    EXPECT_EQ(command("", Text, 4), "05 03 1000 0001");
    PreviewNoCrc = 0;
    PreviewHeader = "AA55";
    EXPECT_EQ(ReadCommandText("0", {"0x7000", 1, 0}), "AA55 07 03 7000 0001 " + CommandCrc("0370000001"));
    EXPECT_EQ(ReadCommandText("0", {"0", 1, 0}), "AA55 05 03 0001 " + CommandCrc("030001"));
}

TEST(TypedData, IsWrittenInEveryForm) {
    const auto write = [](int type, const char* typed) {
        WriteTyped({"0x1000", type, 3}, typed, HexDigits::FilledUp, Store);
        return panel::ReadVar(0x1000, type, 3);
    };
    for (int type = 0; type < Text; ++type) EXPECT_EQ(write(type, "0x10"), "16") << type;
    EXPECT_EQ(write(1, "0xFFFFFFFF"), "65535");
    EXPECT_EQ(write(6, "0xFFFFFFFF"), "-1");
    EXPECT_EQ(write(6, "0x123456789"), "0") << "a list is no number";
    EXPECT_EQ(write(Text, "0x00614E2D 0000 0062"), QString::fromUtf8("a中b")) << "without its zeros";
    EXPECT_EQ(write(Text, "plain"), "plain");
}

TEST(TypedData, ThatIsEmptyWritesNothingAndHasNoCommand) {
    panel::StoreWord(0x1000, 0x4141);
    for (const char* typed : {"", "0x", "0X "})
        for (const int type : {1, Text}) {
            EXPECT_FALSE(WriteTyped({"0x1000", type, 4}, typed, HexDigits::AsTyped, Store)) << typed;
            EXPECT_EQ(panel::ReadWord(0x1000), 0x4141);
        }
}

TEST(RawBytes, AreRunsOfDigitsAndLiterals) {
    EXPECT_EQ(ParseRawBytes("0102 ff"), QByteArray::fromHex("0102ff"));
    EXPECT_EQ(ParseRawBytes("01\"Hi 9/\"02"), QByteArray("\x01Hi 9/\x02"));
    EXPECT_EQ(ParseRawBytes("01 02/03"), QByteArray("\x01\x02"));
    EXPECT_EQ(ParseRawBytes("0\t1"), QByteArray("\x01"));
    EXPECT_EQ(ParseRawBytes("\"open"), "open");
    for (const char* odd : {"0", "01 2", "012 03", "1/", "1\"a\"2"}) EXPECT_EQ(ParseRawBytes(odd), "") << odd;
}

TEST(RawBytes, OfANumberLieInOrderAndOfATextInReverse) {
    EXPECT_FALSE(WriteTyped({"0x1000", 1, 0}, "0x0x0102 03", HexDigits::FilledUp, Store)) << "no command";
    EXPECT_EQ(panel::ReadWord(0x1000), 0x0102);
    EXPECT_EQ(panel::ReadWord(0x1001), 0x0300);
    EXPECT_FALSE(WriteTyped({"0x1100", Text, 0}, "0X0X\"abc\"", HexDigits::AsTyped, Store));
    EXPECT_EQ(panel::ReadWord(0x1100), 0x0063);
    EXPECT_EQ(panel::ReadWord(0x1101), 0x6261);
}

TEST(RawBytes, ActOnSystemWordsAndStayInTheStore) {
    WriteTyped({"0x7001", 1, 0}, "0x0x003F", HexDigits::AsTyped, Store);
    EXPECT_EQ(panel::DimValue, 0);
    const QString many = "0x0x" + QString("55").repeated(4000);
    for (const char* address : {"0x70FE", "0x70FF", "0xFFFF", "0xFFFFFFFF"})
        for (const int type : {1, Text}) WriteTyped({address, type, 0}, many, HexDigits::AsTyped, Store);
    EXPECT_EQ(panel::ReadWord(0x70FE), 0x5555);
    EXPECT_EQ(panel::ReadWord(0), 0);
}

} // namespace
