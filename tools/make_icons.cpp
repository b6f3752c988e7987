// Renders the icon files that lie beside the program, and those of a desktop: make_icons PROGRAM_FOLDER
// ICON_FOLDER

#include "shell/ico_file.h"
#include "shell/skin.h"

#include <QApplication>
#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

// Small sizes have a drawing of their own.
bool WriteDesktopIcons(const QString& folder) {
    if (!QDir().mkpath(folder)) return false;
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256, 512}) {
        const auto picture = Skin::Icon(size < 48 ? u"logo-small"_s : u"logo"_s, size, 1);
        if (!picture.save(u"%1/%2.png"_s.arg(folder).arg(size), "PNG")) return false;
    }
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    if (argc != 3) return 2;
    const QString folder = QString::fromLocal8Bit(argv[1]);
    Skin::Load(folder, false);
    for (const auto& [file, icon] :
         {std::pair{u"Ico.ico"_s, u"logo"_s}, {u"Jot.ico"_s, u"logo"_s}, {u"HeadIco.ico"_s, u"head-1"_s}}) {
        QFile out(folder + u'/' + file);
        if (!out.open(QIODevice::WriteOnly) || out.write(IconSetIco(icon)) < 0) return 1;
    }
    return WriteDesktopIcons(QString::fromLocal8Bit(argv[2])) ? 0 : 1;
}
