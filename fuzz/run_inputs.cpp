// Runs a fuzz target over files, or over all files of folders: fuzz_NAME PATH...
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QtGlobal>

#include <cstdint>
#include <cstdio>
#include <span>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

int inputCount = 0;
qint64 slowestMs = 0;
QString slowest;

void runFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) qFatal("%s: %s", qPrintable(path), qPrintable(file.errorString()));
    const QByteArray bytes = file.readAll();
    QElapsedTimer timer;
    timer.start();
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                           static_cast<std::size_t>(bytes.size()));
    ++inputCount;
    if (timer.elapsed() <= slowestMs) return;
    slowestMs = timer.elapsed();
    slowest = path;
}

} // namespace

int main(int argc, char** argv) {
    for (const char* argument : std::span(argv, static_cast<std::size_t>(argc)).subspan(1)) {
        const QString path = QFile::decodeName(argument);
        if (!QFileInfo(path).isDir()) runFile(path);
        for (QDirIterator files(path, QDir::Files); files.hasNext();) runFile(files.next());
    }
    std::printf("%d inputs, %lld ms at most, for %s\n", inputCount, static_cast<long long>(slowestMs),
                qPrintable(slowest));
    return inputCount > 0 ? 0 : 2;
}
