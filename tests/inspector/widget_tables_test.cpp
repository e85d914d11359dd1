#include "inspector/widget_tables.h"

#include <gtest/gtest.h>
#include <string>

namespace {

using namespace inspector;

/// A row as one text: cells, type index, encode index.
QString textOf(const WidgetRow& row) {
    const QString cells = QStringList({row.page, row.widgetName, row.description, row.address}).join(',');
    return QString("%1,%2,%3").arg(cells).arg(row.typeIndex).arg(row.encodeIndex);
}

TEST(WidgetTables, BecomeRows) {
    const struct {
        const char *name, *touch, *display, *rows;
    } cases[] = {
        {"OnlyHeads", "page,name\n", "page,name", ""},
        {"CarriageReturns", "h\r\n0,slider_1,s,0x01\r\n", "h\r\n\r\n0,icon_1,d,0x10,,0xFFFF\r\n",
         "0,slider_1,s,0x01,1,0\n0,icon_1,d,0x10,1,0"},
        {"TouchKinds",
         "h\n0,slider_1,a,0x01\n0,rtouch_2,b,0x02,x\n0,key_3,c,0x03\n0,slider,d,0x04\n"
         "0,sliders_5,e,0x05\n0,slider_6,f, \n0,slider_7,g\n",
         "h", "0,slider_1,a,0x01,1,0\n0,rtouch_2,b,0x02,1,0\n0,slider,d,0x04,1,0"},
        {"TouchRowsLeadTheirPage", "h\n0,slider_0,,0x1\n2,slider_2,,0x2\n5,slider_5,,0x3\n9,rtouch_9,,0x4\n",
         "h\n1,a_1,,0x5,,0xFFFF\n1,a_2,,0x6,,0xFFFF\n3,a_3,,0x7,,0xFFFF\n5,a_5,,0x8,,0xFFFF\n",
         "0,slider_0,,0x1,1,0\n1,a_1,,0x5,1,0\n1,a_2,,0x6,1,0\n2,slider_2,,0x2,1,0\n3,a_3,,0x7,1,0\n"
         "5,slider_5,,0x3,1,0\n5,a_5,,0x8,1,0\n9,rtouch_9,,0x4,1,0"},
        {"Labels", "",
         "h\n0,label_1,,0x1,,0xFFFF,,0\n0,label_2,,0x2,,0xFFFF,,1\n0,textroll_3,,0x3,,0xFFFF,,2\n"
         "0,label_4,,0x4,,0xFFFF,,3\n0,label_5,,0x5,,0xFFFF,,5\n0,label_6,,0x6,,0xFFFF,,8\n"
         "0,label_7,,0x7,,0xFFFF,,4\n0,label_8,,0x8,,0x9\n",
         "0,label_1,,0x1,7,0\n0,label_2,,0x2,7,0\n0,textroll_3,,0x3,7,2\n0,label_4,,0x4,7,3\n"
         "0,label_5,,0x5,7,3\n0,label_6,,0x6,7,3\n0,label_7,,0x7,7,0"},
        {"VectorsMakeRowsOfTheirOwn", "",
         "h\n0,label_1,text,0x1,,0x20,,4\n0,icon_2,icon, ,,0x30\n0,icon_3,, ,,0xFFFF\n0,qrcode_4,,0x4,,\n",
         "0,label_1,text,0x1,7,0\n0,label_1,text_VectorAddr,0x20,1,0\n0,icon_2,icon_VectorAddr,0x30,1,0\n"
         "0,qrcode_4,,0x4,7,4\n0,qrcode_4,_VectorAddr,,1,0"},
        {"Timers", "",
         "h\n0,uitimer_1,t,0x1,,0x9,,0x2,,0x3\n0,uitimer_2,t,0x1,,0x9,,0x2,\n"
         "0,uitimer_3,t, ,,0x9,,0x2,,0x3\n",
         "0,uitimer_1,t_CalcAddr,0x1,1,0\n0,uitimer_1,t_PresetAddr,0x2,1,0\n"
         "0,uitimer_1,t_CtrlAddr,0x3,1,0\n0,uitimer_3,t_VectorAddr,0x9,1,0"},
        {"ShortLineEndsTheTable", "h\n4,slider_4,,0x4\n8,slider_8,,0x8\n",
         "h\n0,a_1,,0x1,,0xFFFF\n4,a_2,,0x2,\n5,a_3,,0x3,,0xFFFF\n",
         "0,a_1,,0x1,1,0\n4,slider_4,,0x4,1,0\n8,slider_8,,0x8,1,0"},
    };
    for (const auto& test : cases) {
        QStringList rows;
        for (const WidgetRow& row : ReadWidgetTables(test.touch, test.display)) rows += textOf(row);
        EXPECT_EQ(rows.join('\n').toStdString(), test.rows) << test.name;
    }
}

TEST(WidgetTable, KnowsTheDataTypesOfNumbers) {
    const auto typeOf = [](const char* code) {
        return ReadWidgetTables("", QString("h\n0,number_1,,0x1,,0xFFFF,,%1").arg(code)).at(0).typeIndex;
    };
    const std::vector<std::pair<const char*, int>> types{
        {"80", 0},  {"81", 1},  {"82", 2},  {"0", 3},  {"00", 3}, {"01", 4}, {"2", 5},  {"83", 6}, {"40", 7},
        {"41", -1}, {"4f", -1}, {"4F", -1}, {"50", 1}, {"3", 1},  {"", 1},   {"zz", 1}, {"84", 1}};
    for (const auto& [code, type] : types) EXPECT_EQ(typeOf(code), type) << code;
}

TEST(WidgetTable, TakesAnyTextAtAnyLength) {
    const QString head = "h\n";
    const QString hugeField = "0,icon_1," + QString(5'000'000, 'd') + ",0x1,,0xFFFF";
    const auto huge = ReadWidgetTables(head, head + hugeField + QString(5'000'000, ','));
    ASSERT_EQ(huge.size(), 1U);
    EXPECT_LE(huge[0].description.size(), 1024);
    EXPECT_EQ(huge[0].address, "0x1");
    EXPECT_TRUE(ReadWidgetTables(QString(3'000'000, ','), QString(3'000'000, '\n')).empty());
    const QString broken = QString::fromUtf8(QByteArray("0,\xFF\xFE_1,\xC3,\x80,,0xFFFF"));
    EXPECT_EQ(ReadWidgetTables(head, head + broken).size(), 1U);
}

TEST(SystemRow, NamesTheWordsOfThePanel) {
    ASSERT_EQ(SystemRows().size(), 16U);
    EXPECT_EQ(textOf(SystemRows().front()), "-,SystemFuction,Switch page,0x7000,1,0");
    EXPECT_EQ(textOf(SystemRows().at(8)), "-,SystemFuction,Refresh time,0x7008,1,0");
    EXPECT_EQ(textOf(SystemRows().back()), "-,SystemFuction,Multi-language,0x703F,1,0");
}

} // namespace
