#include "host/session_recorder.h"

#include "host/script_words.h"
#include "store/host_time.h"
#include "store/system_words.h"
#include "store/variable_store.h"
#include "store/variable_text.h"
#include "store/variable_value.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>

namespace {

constexpr int TickTime = 10;            // ms
constexpr char BeatOfTheLoop[] = "ttc"; // two ticks, then a cycle
constexpr int BeatLength = 3;
constexpr int BeatTime = 2 * TickTime;
constexpr int WordBytes = 2;

namespace script = panel::script;

QString quoted(QString text) { return '"' + text.replace('"', QLatin1String("\"\"")) + '"'; }
QString hexWord(unsigned word) { return QStringLiteral("0x%1").arg(word, 4, 16, QLatin1Char('0')); }

QString keyName(std::optional<panel::EncoderKey> key) {
    return std::ranges::find(script::KeyNames, key, &script::KeyName::key)->name;
}

/// Any index that is none counts as the first, as the store takes it.
const script::EncodingName& encodingOf(int index) {
    const bool known = index >= 0 && index < static_cast<int>(script::EncodingNames.size());
    return script::EncodingNames[known ? static_cast<std::size_t>(index) : 0];
}

QString pointer(const char* command, QPoint at) {
    return QStringLiteral("%1 %2 %3").arg(command).arg(at.x()).arg(at.y());
}

/// A line of a script cannot hold everything.
bool standsInALine(const QString& text) {
    return std::none_of(text.begin(), text.end(),
                        [](QChar c) { return c.category() == QChar::Other_Control || c.isSurrogate(); });
}

/// How many of one character stand at the beginning.
int runLength(const QByteArray& passed, int at, char of) {
    int end = at;
    while (end < passed.size() && passed[end] == of) ++end;
    return end - at;
}

int beats(const QByteArray& passed, int at) {
    int count = 0;
    while (passed.mid(at + BeatLength * count, BeatLength) == BeatOfTheLoop) ++count;
    return count;
}

/// The passing of time in as few commands as it takes. Ticks and cycles fall into their usual beat again
/// after one of them was late.
QStringList timeLines(const QByteArray& passed) {
    QStringList lines;
    for (int at = 0; at < passed.size();) {
        if (const int count = beats(passed, at)) {
            lines += QStringLiteral("run %1").arg(BeatTime * count);
            at += BeatLength * count;
        } else if (const int cycles = runLength(passed, at, 'c')) {
            lines += QStringLiteral("cycle %1").arg(cycles);
            at += cycles;
        } else {
            const int ticks = runLength(passed, at, 't');
            const int alone = at + ticks < passed.size() && ticks > 2 ? ticks - 2 : ticks;
            lines += QStringLiteral("tick %1").arg(alone);
            at += alone;
        }
    }
    return lines;
}

} // namespace

SessionRecorder::~SessionRecorder() { noteTime(); }

bool SessionRecorder::open(const QString& file) {
    file_.setFileName(file);
    return file_.open(QIODevice::WriteOnly | QIODevice::Truncate);
}

// --- What happens ---

void SessionRecorder::load(const QString& path) {
    if (start_.isNull())
        noteStart(path);
    else
        note(QStringLiteral("load ") + quoted(path));
    panel::SetHostTime(start_.addMSecs(qint64{TickTime} * ticks_));
}

void SessionRecorder::tick(int& tickCount) {
    lookAtEngine();
    passed_ += 't';
    ++ticks_;
    PanelInput::tick(tickCount);
}

void SessionRecorder::press(QPoint at) {
    note(pointer("press", at));
    PanelInput::press(at);
}

void SessionRecorder::move(QPoint at) {
    note(pointer("move", at));
    PanelInput::move(at);
}

void SessionRecorder::release() {
    note(QStringLiteral("release"));
    PanelInput::release();
}

void SessionRecorder::key(std::optional<panel::EncoderKey> key) {
    note(QStringLiteral("key ") + keyName(key));
    PanelInput::key(key);
}

void SessionRecorder::writeVar(std::uint32_t address, const QString& text, int typeIndex, int encodeIndex) {
    noteTime();
    PanelInput::writeVar(address, text, typeIndex, encodeIndex);
    if (typeIndex == panel::value_type::String)
        noteText(address, text, encodeIndex);
    else
        noteNumber(address, text.toLongLong(), panel::StoreWidth(typeIndex));
}

void SessionRecorder::writeRaw(std::uint32_t address, const QByteArray& bytes, bool isText) {
    noteTime();
    PanelInput::writeRaw(address, bytes, isText);
    noteWords(address, static_cast<std::size_t>(bytes.size() / WordBytes + 1));
}

// --- The script ---

void SessionRecorder::noteStart(const QString& path) {
    start_ = QDateTime::currentDateTime();
    start_ = start_.addMSecs(-start_.time().msec()); // the replay's clock starts on a second, too
    write(QStringLiteral("# Recorded by vendaro %1. To repeat it:")
              .arg(QCoreApplication::applicationVersion()));
    write(QStringLiteral("#   vendaro-replay --clock \"%1\" %2 %3")
              .arg(start_.toString("yyyy-MM-dd HH:mm:ss"), quoted(path),
                   quoted(QFileInfo(file_).absoluteFilePath())));
    cycles_ = progress_().cycles;
}

void SessionRecorder::note(const QString& line) {
    if (start_.isNull()) return;
    noteTime();
    write(line);
}

void SessionRecorder::noteTime() {
    if (start_.isNull()) return;
    const EngineProgress progress = lookAtEngine();
    for (const QString& line : timeLines(passed_)) write(line);
    const bool hasCycle = passed_.contains('c');
    passed_.clear();
    if (!hasCycle || progress.page == page_) return;
    page_ = progress.page;
    write(QStringLiteral("expect page %1").arg(page_));
}

void SessionRecorder::noteNumber(std::uint32_t address, qint64 value, int width) {
    if (!panel::IsInReach(address, width)) return;
    const int words = std::max(width / WordBytes, 1);
    const auto number = static_cast<quint64>(width == 1 ? value & 0xFF : value);
    for (int i = 0; i < words; ++i)
        write(QStringLiteral("set %1 %2")
                  .arg(hexWord(address + static_cast<unsigned>(i)),
                       hexWord(number >> 16 * (words - 1 - i) & 0xFFFF)));
}

void SessionRecorder::noteText(std::uint32_t address, const QString& text, int encodeIndex) {
    if (address >= panel::HandWrittenWordCount) return;
    const auto word = static_cast<std::uint16_t>(address);
    const script::EncodingName& encoding = encodingOf(encodeIndex);
    const panel::EncodedText encoded = panel::EncodeText(text, encoding.encoding);
    if (!panel::VariableTextFits(word, encoded)) return;
    if (encoded.replaced == 0 && standsInALine(text))
        write(QStringLiteral("text %1 %2 %3").arg(hexWord(word), encoding.name, quoted(text)));
    else
        noteWords(word, static_cast<std::size_t>((encoded.bytes.size() + 1) / WordBytes));
}

void SessionRecorder::noteWords(std::uint32_t first, std::size_t count) {
    if (first >= panel::StoreWordCount) return;
    const std::size_t end = std::min(first + count, std::size_t{panel::StoreWordCount});
    for (std::size_t at = first; at < end; at += script::LargestWrite) {
        QString line = QStringLiteral("write ") + hexWord(static_cast<unsigned>(at));
        for (std::size_t word = at; word < std::min(at + script::LargestWrite, end); ++word)
            line += ' ' + hexWord(panel::ReadWord(static_cast<std::uint16_t>(word)));
        write(line);
    }
}

EngineProgress SessionRecorder::lookAtEngine() {
    const EngineProgress progress = progress_();
    passed_.append(static_cast<int>(progress.cycles - cycles_), 'c');
    cycles_ = progress.cycles;
    return progress;
}

void SessionRecorder::write(const QString& line) {
    if (start_.isNull()) return;
    file_.write(line.toUtf8() + '\n');
    file_.flush();
}
