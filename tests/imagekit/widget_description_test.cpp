#include "imagekit/image_builder.h"
#include "imagekit/image_error.h"
#include "imagekit/value_widgets.h"

#include "temporary_files.h"

namespace {

using namespace imagekit;

class WidgetTables : public ::testing::Test, protected TemporaryFiles {};

TEST_F(WidgetTables, ListWhatIsDescribedPageByPage) {
    ImageBuilder image;
    const std::uint8_t ascii = image.addFont(SyntheticFont({.Kind = FontKind::Ascii}));
    const std::uint8_t sparse = image.addFont(SyntheticFont({.Kind = FontKind::Sparse, .Codes = {0x4E2D}}));
    Page& first = image.addPage();
    Page& second = image.addPage();
    second.add(Number{.ValueAddress = 0x0abc, .Type = DataType::S32}, "speed");
    second.add(PngNumber{.ValueAddress = 0x0abd, .Type = DataType::U8}, "level");
    first.add(Label{.TextAddress = 0x100, .Font = ascii}, "名");
    first.add(Label{.ParameterAddress = 0x200, .Font = sparse, .String = 1}, "title");
    first.add(UiTimer{.PresetAddress = 1, .TimerAddress = 2, .ControlAddress = 3}, "egg");
    first.add(ImageAnimation{.ControlAddress = 0x300}); // not for the inspector
    first.describe({.Name = "slider_7", .Text = "level", .Address = 0x50, .Table = WidgetTable::Touch});
    EXPECT_EQ(EncodeWidgetTable(image, WidgetTable::Display),
              "Page,WidgetName,Description,Var_Addr,,Vector_Addr,,Type,,Control_Addr\n"
              "0,label_0,名,0x0100,,0xFFFF,,4,,\n"
              "0,label_1,title, ,,0x0200,,3,,\n"
              "0,uitimer_2,egg,0x0002,,0xFFFF,,0x0001,,0x0003\n"
              "1,number_0,speed,0x0ABC,,0xFFFF,,82,,\n"
              "1,pngNumber_1,level,0x0ABD,,0xFFFF,,00,,\n");
    EXPECT_EQ(EncodeWidgetTable(image, WidgetTable::Touch),
              "Page,WidgetName,Description,Var_Addr\n0,slider_7,level,0x0050\n");

    WriteWidgetTables(image, directory_.path());
    EXPECT_EQ(readFile("TouchWidget.csv"), EncodeWidgetTable(image, WidgetTable::Touch));
    EXPECT_EQ(readFile("DisplayWidget.csv"), EncodeWidgetTable(image, WidgetTable::Display));
    EXPECT_THROW(WriteWidgetTables(image, path("none")), ImageError);
}

TEST_F(WidgetTables, RefuseWhatACellCannotHold) {
    for (const char* text : {"a,b", "a\nb", "a\rb"}) {
        ImageBuilder image;
        image.addPage().add(Number{}, text);
        EXPECT_THROW(EncodeWidgetTable(image, WidgetTable::Display), ImageError);
        EXPECT_NO_THROW(EncodeWidgetTable(image, WidgetTable::Touch));
    }
    ImageBuilder image;
    image.addPage().add(Label{.Font = 1}, "there is no font");
    EXPECT_THROW(EncodeWidgetTable(image, WidgetTable::Display), ImageError);
}

} // namespace
