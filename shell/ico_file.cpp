#include "shell/ico_file.h"

#include "shell/skin.h"

#include <QBuffer>
#include <QDataStream>

QByteArray IcoBytes(const std::vector<QImage>& pictures) {
    std::vector<QByteArray> pngs;
    for (const auto& picture : pictures) {
        QByteArray png;
        QBuffer buffer(&png);
        buffer.open(QIODevice::WriteOnly);
        picture.save(&buffer, "PNG");
        pngs.push_back(png);
    }
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    out << quint16(0) << quint16(1) << static_cast<quint16>(pngs.size());
    auto offset = static_cast<quint32>(6 + 16 * pngs.size());
    for (size_t i = 0; i < pngs.size(); ++i) {
        const auto side = static_cast<quint8>(pictures[i].width() & 0xff);  // 0 stands for 256
        const auto length = static_cast<quint32>(pngs[i].size());
        out << side << side << quint8(0) << quint8(0) << quint16(1) << quint16(32) << length << offset;
        offset += length;
    }
    for (const auto& png : pngs)
        out.writeRawData(png.constData(), static_cast<int>(png.size()));
    return bytes;
}

QByteArray IconSetIco(const QString& name) {
    std::vector<QImage> pictures;
    for (const int size : {16, 32, 48, 256})
        pictures.push_back(Skin::Icon(name, size, 1).toImage());
    return IcoBytes(pictures);
}
