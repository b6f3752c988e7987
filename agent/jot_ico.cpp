// JotIco: chooses one of the head icons, which the reminder window shows.

#include "agent/head_choice.h"
#include "shell/controls/kestro_style.h"
#include "shell/controls/kestro_tool_tip.h"
#include "shell/ico_file.h"
#include "shell/message_box.h"
#include "shell/skin.h"
#include "store/messages.h"
#include "store/places.h"
#include "store/session.h"
#include "store/state.h"

#include <QApplication>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace {

bool WriteHead(const QString& name) {
    QSaveFile file(State().gDataDir + u"/HeadIco.ico"_s);
    const QByteArray bytes = IconSetIco(name);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    InitFolders();
    Skin::Load(ProgramFolder());
    QApplication::setStyle(new KestroStyle);
    QApplication::setFont(Skin::Font(Type::body));
    KestroToolTip::Install();
    InstallMessageBox();
    HeadChoice choice;
    if (choice.exec() != QDialog::Accepted) return 0;
    if (WriteHead(choice.Chosen())) return 0;
    ShowMsg(u"头像文件写入错误!"_s, u"确定"_s, kMsgFail);
    return 1;
}
