#include "host/video_decoder.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QMediaPlayer>
#include <QMimeDatabase>
#include <QSettings>
#include <QUrl>

namespace {

QString decoderFolder() { return QCoreApplication::applicationDirPath() + QStringLiteral("/LAV Filters"); }
QString ignoreFile() { return decoderFolder() + QStringLiteral("/1.txt"); }

QMessageBox::StandardButton offer(const AskUser& ask, QMessageBox::StandardButtons buttons) {
    const auto answer =
        ask(QStringLiteral("The video decoder, LAV Filter, is not detected.<br>Install LAV Filter?"), buttons,
            QMessageBox::Yes);
    if (answer == QMessageBox::Yes) QDesktopServices::openUrl(QUrl::fromLocalFile(decoderFolder()));
    return answer;
}

void ignoreFromNowOn() {
    QDir().mkpath(decoderFolder());
    QFile file(ignoreFile());
    if (file.open(QIODevice::WriteOnly))
        file.write("这是用来将Vendaro初始弹窗忽略的，没有任何影响，当然你也可以删掉它。");
}

#ifdef Q_OS_WIN

bool decoderInstalled() {
    QSettings programs(
        QStringLiteral("HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\"),
        QSettings::NativeFormat);
    for (const QString& program : programs.childGroups()) {
        programs.beginGroup(program);
        const bool installed =
            !programs.value(QStringLiteral("UninstallString")).toString().isEmpty()
            && programs.value(QStringLiteral("DisplayName")).toString().contains(QStringLiteral("LAV"));
        programs.endGroup();
        if (installed) return true;
    }
    return false;
}

#else

/// Containers of H.264. The back end knows the container without the decoder, so it is asked for the codecs.
bool holdsH264(const QString& mime) {
    return mime == QLatin1String("video/mp4") || mime == QLatin1String("video/quicktime");
}

bool canPlay(const QString& mime) {
    if (!holdsH264(mime)) return QMediaPlayer::hasSupport(mime) != QMultimedia::NotSupported;
    return QMediaPlayer::hasSupport(QStringLiteral("video/mp4"),
                                    {QStringLiteral("avc1.42E01E"), QStringLiteral("mp4a.40.2")})
           == QMultimedia::ProbablySupported;
}

#endif

} // namespace

#ifdef Q_OS_WIN

bool VideoDecoderFound(const QString& /*file*/) {
    static const bool found = decoderInstalled();
    return found;
}

#else

bool VideoDecoderFound(const QString& file) {
    if (file.isEmpty()) return canPlay(QStringLiteral("video/mp4"));
    const QString mime = QMimeDatabase().mimeTypeForFile(file).name();
    return !mime.startsWith(QLatin1String("video/")) || canPlay(mime);
}

#endif

void ProbeVideoDecoder(const AskUser& ask) {
    if (VideoDecoderFound() || QFile::exists(ignoreFile())) return;
    if (offer(ask, QMessageBox::Yes | QMessageBox::No | QMessageBox::Ignore) == QMessageBox::Ignore)
        ignoreFromNowOn();
}

void OfferVideoDecoder(const AskUser& ask) { offer(ask, QMessageBox::Yes | QMessageBox::No); }
