#include "host/riff_head.h"

#include <QDataStream>

namespace panel {

QByteArray RiffHead(std::uint32_t byteCount) {
    constexpr quint16 pcm = 1, channels = 1, blockBytes = 2, bits = 16;
    QByteArray head;
    QDataStream out(&head, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    out.writeRawData("RIFF", 4);
    out << quint32{byteCount + 36};
    out.writeRawData("WAVEfmt ", 8);
    out << quint32{16} << pcm << channels << quint32{SampleRate} << quint32{SampleRate * blockBytes}
        << blockBytes << bits;
    out.writeRawData("data", 4);
    out << quint32{byteCount};
    return head;
}

} // namespace panel
