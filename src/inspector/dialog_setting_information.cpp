#include "inspector/dialog_setting_information.h"

#include "host/config_block.h"
#include "host/config_texts.h"
#include "host/flash_image.h"
#include "host/path_files.h"
#include "inspector/command_preview.h"
#include "inspector/hex_text.h"
#include "ui_dialog_setting_information.h"

#include <algorithm>
#include <array>
#include <cstddef>

using inspector::FormatHex;

namespace {

constexpr std::array<const char*, 4> RotationLabels{"  0 Degree", " 90 Degree", "180 Degree", "270 Degree"};
constexpr std::array<const char*, 3> ParityLabels{"None", "Even", "Odd"};
constexpr std::array<const char*, 2> FlashTypeLabels{"NandFlash", "NorFlash"};
constexpr std::array<const char*, 2> NeedleFormatLabels{"aRGB4444", "aRGB4444 Zip"};
constexpr int NandFlashRow = 0, NorFlashRow = 1, NoRow = -1;

// What the form shows in place of an index that its list does not have.
constexpr std::size_t OtherwiseChip = 3;
constexpr std::size_t OtherwiseBaud = 4;
constexpr std::size_t OtherwiseFlashSize = 3;
constexpr int LargestVolumeShown = 16;
constexpr int OtherwiseVolume = 10;

// Chips that the form treats apart.
constexpr int ChipWithEitherFlash = 3;
constexpr int ChipWithNorFlash = 10;
constexpr std::array<int, 5> ChipsWithoutPorches{0, 1, 2, 6, 7};

template <std::size_t N>
void fill(QComboBox& combo, const std::array<const char*, N>& labels, int row) {
    combo.clear();
    for (const char* label : labels) combo.addItem(QString::fromLatin1(label));
    combo.setCurrentIndex(row);
}

template <std::size_t N>
void fill(QComboBox& combo, const std::array<const char*, N>& labels, std::size_t row,
          std::size_t otherwise) {
    fill(combo, labels, static_cast<int>(row < N ? row : otherwise));
}

void showNumber(QLineEdit& edit, unsigned number) { edit.setText(QString::number(number)); }

int flashTypeRow(const panel::ConfigBlock& config) {
    if (config.ICType == ChipWithEitherFlash) return config.NandFlash ? NandFlashRow : NorFlashRow;
    return config.ICType == ChipWithNorFlash ? NorFlashRow : NoRow;
}

/// An item for each page up to the first one to be shown.
QStringList pageNames(int startPage) {
    QStringList names;
    for (int page = 0; page <= startPage; ++page)
        names += QStringLiteral("Page%1").arg(page, 4, 10, QLatin1Char('0'));
    return names;
}

} // namespace

Dialogsettinginformation::Dialogsettinginformation(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      ui_(std::make_unique<Ui::Dialogsettinginformation>()) {
    setAttribute(Qt::WA_QuitOnClose, false);
    ui_->setupUi(this);
}

Dialogsettinginformation::~Dialogsettinginformation() = default;

void Dialogsettinginformation::ClearSettings() {
    for (QComboBox* combo : findChildren<QComboBox*>()) combo->clear();
    for (QLineEdit* edit : findChildren<QLineEdit*>()) edit->clear();
    for (QCheckBox* box : findChildren<QCheckBox*>()) box->setChecked(false);
}

void Dialogsettinginformation::DialogInfo_Show_Setting() {
    inspector::PreviewHeader.clear();
    inspector::PreviewNoCrc = 0;
    if (panel::IllegalImage) {
        ClearSettings();
        return;
    }
    if (panel::FlashImage.size <= panel::SmallestDescribedImage) return;
    const panel::ConfigBlock config = panel::ReadConfigBlock();
    showGeneral(config);
    showCommunication(config);
    showFlash(config);
    showPanel(config);
    showApplication(config);
}

void Dialogsettinginformation::showGeneral(const panel::ConfigBlock& config) {
    fill(*ui_->comboBox_ICType, ChipLabels, config.ICType, OtherwiseChip);
    fill(*ui_->comboBox_RGBIF, ColourFormatLabels, config.RGBIF == 0 ? 0 : 1);
    fill(*ui_->comboBox_Rotate, RotationLabels, config.Rotate, 0);
    fill(*ui_->comboBox_NdlDType, NeedleFormatLabels, 0);
    ui_->checkBox_AutoBL->setChecked(config.AutoBL);
    ui_->checkBox_KeyBeep->setChecked(config.KeyBeep);
    ui_->checkBox_InitVar->setChecked(config.InitVar);
}

void Dialogsettinginformation::showCommunication(const panel::ConfigBlock& config) {
    ui_->checkBox_ModbusM->setChecked(config.ModbusM);
    ui_->checkBox_NoFB->setChecked(config.NoFB);
    ui_->checkBox_NoCRC->setChecked(config.NoCRC);
    inspector::PreviewNoCrc = config.NoCRC ? 1 : 0;
    fill(*ui_->comboBox_EOCheck, ParityLabels, config.EOCheck, 0);
    fill(*ui_->comboBox_BAUD, BaudRateLabels, config.BAUD, OtherwiseBaud);
    const QString first = FormatHex(config.StartBytes[0], 2);
    const QString second = FormatHex(config.StartBytes[1], 2);
    ui_->lineEdit_StartBytes->setText(first + ',' + second);
    inspector::PreviewHeader = first + second;
    ui_->lineEdit_DevAddr->setText(FormatHex(config.DevAddr, 2));
    showNumber(*ui_->lineEdit_DevNum, 1);
}

void Dialogsettinginformation::showFlash(const panel::ConfigBlock& config) {
    fill(*ui_->comboBox_FlhSize, FlashSizeLabels, config.FlhSize, OtherwiseFlashSize);
    fill(*ui_->comboBox_FalshType, FlashTypeLabels, flashTypeRow(config));
}

void Dialogsettinginformation::showPanel(const panel::ConfigBlock& config) {
    int bit = 0;
    for (QCheckBox* box :
         {ui_->checkBox_PCLK, ui_->checkBox_HSYNC, ui_->checkBox_VSYNC, ui_->checkBox_DE, ui_->checkBox_BGR})
        box->setChecked((config.Polarity >> bit++ & 1) != 0);
    showNumber(*ui_->lineEdit_XSIZE, config.XSIZE);
    showNumber(*ui_->lineEdit_YSIZE, config.YSIZE);
    const bool hasPorches =
        std::ranges::find(ChipsWithoutPorches, config.ICType) == std::end(ChipsWithoutPorches);
    const std::pair<QLineEdit*, unsigned> porches[] = {
        {ui_->lineEdit_VBPD, config.VBPD}, {ui_->lineEdit_VFPD, config.VFPD},
        {ui_->lineEdit_VSPW, config.VSPW}, {ui_->lineEdit_HBPD, config.HBPD},
        {ui_->lineEdit_HFPD, config.HFPD}, {ui_->lineEdit_HSPW, config.HSPW}};
    for (const auto& [edit, width] : porches) edit->setText(hasPorches ? QString::number(width) : QString());
}

void Dialogsettinginformation::showApplication(const panel::ConfigBlock& config) {
    ui_->lineEdit_USER_KEY->setText(FormatHex(config.USER_KEY, 8));
    ui_->lineEdit_UserVER->setText(DecodeText(QByteArray::fromStdString(config.UserVER)));
    ui_->comboBox_SPage->clear();
    ui_->comboBox_SPage->addItems(pageNames(config.SPage));
    ui_->comboBox_SPage->setCurrentIndex(config.SPage);
    showNumber(*ui_->lineEdit_GeData, config.GeData);
    showNumber(*ui_->lineEdit_BLON, config.BLON);
    showNumber(*ui_->lineEdit_BLSP, config.BLSP);
    showNumber(*ui_->lineEdit_KPTM, config.KPTM);
    showNumber(*ui_->lineEdit_Volume, config.Volume > LargestVolumeShown ? OtherwiseVolume : config.Volume);
    showNumber(*ui_->lineEdit_LangueNum, config.LangueNum);
}
