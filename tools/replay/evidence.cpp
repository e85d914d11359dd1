#include "replay/evidence.h"

#include "replay/command_error.h"
#include "replay/pictures.h"
#include "replay/word_text.h"
#include "store/variable_store.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace replay {
namespace {

void saveText(const QString& text, const QString& file) {
    QFile out(file);
    const QByteArray bytes = text.toUtf8();
    if (!out.open(QIODevice::WriteOnly) || out.write(bytes) != bytes.size() || !out.flush())
        throw CommandError("cannot write " + file);
}

QString allWords() {
    constexpr int wordsInLine = 8;
    QString text;
    for (int address = 0; address < panel::StoreWordCount; address += wordsInLine)
        text += WordsText(address, std::min<int>(wordsInLine, panel::StoreWordCount - address)) + '\n';
    return text;
}

} // namespace

void KeepEvidence(const QString& directory, const Report& report, const QImage& actual,
                  const QImage& difference) {
    if (!QDir().mkpath(directory)) throw CommandError("cannot make the directory " + directory);
    const QString script = QFileInfo(report.script()).fileName();
    const QString stem = QDir(directory).filePath(QString("%1.%2").arg(script).arg(report.line()));
    SavePicture(actual, stem + ".actual.png");
    if (!difference.isNull()) SavePicture(difference, stem + ".difference.png");
    saveText(allWords(), stem + ".words.txt");
    saveText(report.source() + '\n', stem + ".line.txt");
}

} // namespace replay
