// Draws the pictures of the tray for each number of due reminders, as the agent sends them, and lists them
// for its resources: make_tray PROGRAM_FOLDER FOLDER

#include "shell/skin.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QtEndian>

using namespace Qt::StringLiterals;

namespace {

constexpr int kSide = 64;
constexpr int kMany = 100;  // the picture of every number above 99

QImage Picture(int number) {
    QPixmap picture = Skin::Icon(u"agent"_s, kSide, 1);
    if (number > 0) {
        QPainter p(&picture);
        p.setRenderHint(QPainter::Antialiasing);
        p.setPen(Qt::NoPen);
        p.setBrush(Skin::Color(Tok::seal));
        const QRect seal(26, 0, 38, 30);
        p.drawRoundedRect(seal, 15, 15);
        QFont font = Skin::Font(Type::badge);
        font.setPixelSize(number == kMany ? 19 : 24);
        p.setFont(font);
        p.setPen(Skin::Color(Tok::inkText));
        p.drawText(seal, Qt::AlignCenter, number == kMany ? u"99+"_s : QString::number(number));
    }
    return picture.toImage();
}

// Alpha first, whatever the machine's order of bytes.
QByteArray Pixels(const QImage& picture, int side) {
    const QImage image = picture.scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                             .convertToFormat(QImage::Format_ARGB32);
    QByteArray bytes(image.sizeInBytes(), '\0');
    qToBigEndian<quint32>(image.constBits(), image.sizeInBytes() / 4, bytes.data());
    return bytes;
}

bool Write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    if (argc != 3) return 2;
    Skin::Load(QString::fromLocal8Bit(argv[1]), false);
    const QDir folder(QString::fromLocal8Bit(argv[2]));
    if (!folder.mkpath(u"."_s)) return 1;
    QByteArray list = "<RCC><qresource prefix=\"/tray\">\n";
    for (int number = 0; number <= kMany; ++number) {
        const QImage picture = Picture(number);
        for (const int side : {22, 32, kSide}) {
            const QString name = u"%1-%2"_s.arg(number).arg(side);
            if (!Write(folder.filePath(name), Pixels(picture, side))) return 1;
            list += "<file>" + name.toLatin1() + "</file>\n";
        }
    }
    return Write(folder.filePath(u"tray.qrc"_s), list + "</qresource></RCC>\n") ? 0 : 1;
}
