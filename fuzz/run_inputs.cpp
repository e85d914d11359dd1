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

void runFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) qFatal("%s: %s", qPrintable(path), qPrintable(file.errorString()));
    const QByteArray bytes = file.readAll();
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                           static_cast<std::size_t>(bytes.size()));
    ++inputCount;
}

} // namespace

int main(int argc, char** argv) {
    for (const char* argument : std::span(argv, static_cast<std::size_t>(argc)).subspan(1)) {
        const QString path = QFile::decodeName(argument);
        if (!QFileInfo(path).isDir()) runFile(path);
        for (QDirIterator files(path, QDir::Files); files.hasNext();) runFile(files.next());
    }
    std::printf("%d inputs\n", inputCount);
    return inputCount > 0 ? 0 : 2;
}
