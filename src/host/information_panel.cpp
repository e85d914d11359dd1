#include "host/information_panel.h"

#include "host/config_block.h"
#include "host/config_texts.h"
#include "host/flash_image.h"
#include "host/path_files.h"
#include "ui_main_window.h"

namespace {

QString textOf(const std::string& bytes) { return DecodeText(QByteArray::fromStdString(bytes)); }

QString mebibytes(std::int32_t byteCount) {
    return QString::number(byteCount * 9.536743e-07, 'f', 2) + QStringLiteral(" MB");
}

QString userId(std::uint32_t key) {
    return QStringLiteral("0x") + QStringLiteral("%1").arg(key, 8, 16, QLatin1Char('0')).toUpper();
}

} // namespace

void InformationPanel::showPath(const QString& path) {
    form_.label_PathStr->setWordWrap(true);
    form_.label_PathStr->setText(QStringLiteral("Path: ") + path);
}

void InformationPanel::showImage() {
    form_.label_Filesize->setText(mebibytes(panel::FlashImage.size));
    form_.textEdit->append(QStringLiteral("File size:%1").arg(panel::FlashImage.size));
    if (panel::FlashImage.size > panel::SmallestDescribedImage) showSettings();
}

void InformationPanel::showSettings() {
    const panel::ConfigBlock config = panel::ReadConfigBlock();
    form_.label_EditorVer->setText(textOf(config.EditorVersion));
    form_.label_DevAddr->setText(QStringLiteral("0x%1").arg(config.DevAddr, 0, 16));
    form_.label_LCDresulution->setText(QStringLiteral("%1*%2").arg(config.XSIZE).arg(config.YSIZE));
    form_.label_Flashsize->setText(LabelOf(FlashSizeLabels, config.FlhSize, "16MB"));
    form_.label_BdRate->setText(LabelOf(BaudRateLabels, config.BAUD & 0x0F, "115200"));
    form_.label_RGBFormat->setText(LabelOf(ColourFormatLabels, config.RGBIF, ColourFormatLabels.back()));
    form_.label_ICType->setText(LabelOf(ChipLabels, config.ICType & 0x0F, "ZRxxxx"));
    form_.label_UserID->setText(userId(config.USER_KEY));
    form_.label_UserVer->setText(textOf(config.UserVER));
}

void InformationPanel::clearImage() {
    for (QLabel* label : {form_.label_EditorVer, form_.label_DevAddr, form_.label_LCDresulution,
                          form_.label_Flashsize, form_.label_Filesize, form_.label_BdRate,
                          form_.label_RGBFormat, form_.label_ICType, form_.label_UserID, form_.label_UserVer})
        label->clear();
}

void InformationPanel::logLoading() {
    clearLog();
    form_.textEdit->setTextColor(Qt::red);
    form_.textEdit->append(QStringLiteral("Loading..."));
    form_.textEdit->setTextColor(Qt::black);
}

void InformationPanel::clearLog() {
    form_.textEdit->clear();
    form_.textEdit->setTextColor(Qt::black);
}
