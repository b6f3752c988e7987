// Renders the icon files that lie beside the program: make_icons PROGRAM_FOLDER

#include "shell/ico_file.h"
#include "shell/skin.h"

#include <QApplication>
#include <QFile>

using namespace Qt::StringLiterals;

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    if (argc != 2) return 2;
    const QString folder = QString::fromLocal8Bit(argv[1]);
    Skin::Load(folder, false);
    for (const auto& [file, icon] :
         {std::pair{u"Ico.ico"_s, u"logo"_s}, {u"Jot.ico"_s, u"logo"_s}, {u"HeadIco.ico"_s, u"head-1"_s}}) {
        QFile out(folder + u'/' + file);
        if (!out.open(QIODevice::WriteOnly) || out.write(IconSetIco(icon)) < 0) return 1;
    }
    return 0;
}
