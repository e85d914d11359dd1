#include "shell/window_fixture.h"

#include "inspector/command_preview.h"

#include <QCheckBox>

namespace {

using imagekit::PanelConfig;

class SettingsTest : public WindowTest {
protected:
    void SetUp() override {
        openWindow();
        trigger("actionInfo");
        form_ = qobject_cast<QDialog*>(window_->findChild<QWidget*>("Dialogsettinginformation"));
        ASSERT_TRUE(form_ && form_->isVisible());
    }

    void load(PanelConfig config) {
        config.Width = config.Height = 40, config.ColourMode = 1;
        imagekit::ImageBuilder image(config);
        image.addPage();
        window_->openImage(writeFile("a.bin", image.build() + QByteArray(0x400, 0)));
    }

    /// What a control shows, as text.
    QString shown(const char* name) const {
        if (const auto* combo = form_->findChild<QComboBox*>(name)) return combo->currentText();
        if (const auto* box = form_->findChild<QCheckBox*>(name)) return box->isChecked() ? "x" : "-";
        return form_->findChild<QLineEdit*>(name)->text();
    }
    QString shown(std::initializer_list<const char*> names) const {
        QStringList texts;
        for (const char* name : names) texts << shown(name);
        return texts.join(' ');
    }

    QDialog* form_ = nullptr;
};

constexpr auto Porches = {"lineEdit_VBPD", "lineEdit_VFPD", "lineEdit_VSPW",
                          "lineEdit_HBPD", "lineEdit_HFPD", "lineEdit_HSPW"};
constexpr auto Boxes = {"checkBox_AutoBL", "checkBox_KeyBeep", "checkBox_InitVar", "checkBox_ModbusM",
                        "checkBox_NoFB",   "checkBox_NoCRC",   "checkBox_PCLK",    "checkBox_HSYNC",
                        "checkBox_VSYNC",  "checkBox_DE",      "checkBox_BGR"};

TEST_F(SettingsTest, ShowsEverySettingInItsOwnControl) {
    PanelConfig config{.ICType = 3, .Rotate = 1, .EOCheck = 2, .BAUD = 9, .StartBytes = {0x0F, 0xAB}};
    config.FlhSize = 8;
    config.NandFlash = true;
    config.VBPD = 1, config.VFPD = 2, config.VSPW = 3;
    config.HBPD = 4, config.HFPD = 5, config.HSPW = 6;
    config.USER_KEY = 0x00C0FFEE;
    config.UserVER = "V2.5";
    config.StartPage = 12, config.GeData = 7, config.BLON = 50, config.BLSP = 9, config.KPTM = 300;
    config.Volume = 16, config.DevAddr = 0x1A, config.LangueNum = 1;
    load(config);
    EXPECT_EQ(
        shown({"comboBox_ICType", "comboBox_RGBIF", "comboBox_Rotate", "comboBox_EOCheck", "comboBox_BAUD",
               "comboBox_FlhSize", "comboBox_FalshType", "comboBox_SPage", "comboBox_NdlDType"}),
        "ZR14 aRGB8888  90 Degree Odd 1382400 512MB NandFlash Page0012 aRGB4444");
    EXPECT_EQ(form_->findChild<QComboBox*>("comboBox_SPage")->count(), 13);
    EXPECT_EQ(shown(Porches), "1 2 3 4 5 6");
    EXPECT_EQ(shown({"lineEdit_XSIZE", "lineEdit_YSIZE", "lineEdit_StartBytes", "lineEdit_USER_KEY",
                     "lineEdit_UserVER", "lineEdit_GeData", "lineEdit_BLON", "lineEdit_BLSP", "lineEdit_KPTM",
                     "lineEdit_Volume", "lineEdit_DevAddr", "lineEdit_DevNum", "lineEdit_LangueNum"}),
              "40 40 0F,AB 00C0FFEE V2.5 7 50 9 300 16 1A 1 1");
    EXPECT_EQ(inspector::PreviewHeader, "0FAB");
}

TEST_F(SettingsTest, EveryFlagHasItsBox) {
    bool PanelConfig::*const flags[] = {&PanelConfig::AutoBL,  &PanelConfig::KeyBeep, &PanelConfig::InitVar,
                                        &PanelConfig::ModbusM, &PanelConfig::NoFB,    &PanelConfig::NoCRC,
                                        &PanelConfig::PCLK,    &PanelConfig::HSYNC,   &PanelConfig::VSYNC,
                                        &PanelConfig::DE,      &PanelConfig::BGR};
    for (std::size_t set = 0; set < std::size(flags); ++set) {
        PanelConfig config{.InitVar = false, .DE = false};
        config.*flags[set] = true;
        load(config);
        QString expected = QString("- ").repeated(std::size(flags)).trimmed();
        expected[2 * static_cast<int>(set)] = 'x';
        EXPECT_EQ(shown(Boxes), expected);
        EXPECT_EQ(inspector::PreviewNoCrc, config.NoCRC ? 1 : 0);
    }
    for (const QCheckBox* box : form_->findChildren<QCheckBox*>()) EXPECT_FALSE(box->isEnabled());
}

TEST_F(SettingsTest, EveryIndexHasItsRowAndAStrangeOneTheUsualRow) {
    const QStringList chips{"ZR11",      "ZR12",      "ZR13",       "ZR14", "ZR15", "ZR16", "ZR17",
                            "ZR18(MCU)", "ZR18(RGB)", "ZR18(QSPI)", "ZR19", "ZR20", "ZR14", "ZR14"};
    for (int chip = 0; chip < chips.size(); ++chip) {
        load({.ICType = static_cast<std::uint8_t>(chip)});
        EXPECT_EQ(shown("comboBox_ICType"), chips[chip]);
        EXPECT_EQ(shown("comboBox_FalshType"), chip == 3 || chip == 10 ? "NorFlash" : "");
        const bool small = chip < 3 || chip == 6 || chip == 7;
        EXPECT_EQ(shown(Porches), small ? "     " : "23 22 1 46 210 1") << chip;
    }
    const QStringList bauds{"9600",   "19200",  "38400",  "57600",   "115200", "230400",
                            "256000", "460800", "921600", "1382400", "115200", "115200"};
    const QStringList sizes{"2MB", "4MB", "8MB", "16MB", "32MB", "64MB", "128MB", "256MB", "512MB", "16MB"};
    for (int index = 0; index < 12; ++index) {
        const auto code = static_cast<std::uint8_t>(index);
        load(
            {.Rotate = code, .EOCheck = static_cast<std::uint8_t>(index & 3), .BAUD = code, .FlhSize = code});
        EXPECT_EQ(shown("comboBox_BAUD"), bauds[index]);
        EXPECT_EQ(shown("comboBox_FlhSize"), sizes.value(index, "16MB"));
        EXPECT_EQ(shown("comboBox_EOCheck"), QStringList({"None", "Even", "Odd", "None"})[index & 3]);
        EXPECT_EQ(form_->findChild<QComboBox*>("comboBox_Rotate")->currentIndex(), index < 4 ? index : 0);
    }
    load({.Volume = 17});
    EXPECT_EQ(shown("lineEdit_Volume"), "10");
}

TEST_F(SettingsTest, ABadImageEmptiesTheFormAndATooShortOneLeavesIt) {
    EXPECT_EQ(inspector::PreviewHeader, "");
    load({.NoCRC = true, .UserVER = "good"});
    emit window_->Update_to_DialogInfo();
    EXPECT_EQ(shown("lineEdit_UserVER"), "good");

    window_->openImage(writeFile("short.bin", readFile("a.bin").left(0x400)));
    EXPECT_EQ(inspector::PreviewHeader, "");
    EXPECT_EQ(inspector::PreviewNoCrc, 0);
    EXPECT_EQ(shown("lineEdit_UserVER"), ""); // opening by hand empties the form before

    load({.UserVER = "good"});
    QByteArray bad = readFile("a.bin");
    bad[0x80 + 40] = 'x';
    window_->openImage(writeFile("bad.bin", bad));
    EXPECT_EQ(inspector::PreviewHeader, "");
    for (const QComboBox* combo : form_->findChildren<QComboBox*>()) EXPECT_EQ(combo->count(), 0);
    for (const QLineEdit* edit : form_->findChildren<QLineEdit*>()) EXPECT_EQ(edit->text(), "");
}

} // namespace
