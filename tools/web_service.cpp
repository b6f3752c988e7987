// web_service [PORT]: a service of the web ledger on this machine, to try the program by hand. Start the
// program with the JOT_WEB_BASE that it prints, and type the user lin with the password geheim.

#include "tests/support/web_service.h"

#include <QCoreApplication>
#include <QTimer>

#include <cstdio>

using namespace Qt::StringLiterals;

int main(int argc, char** argv) {
    const QCoreApplication app(argc, argv);
    WebService service(static_cast<quint16>(QCoreApplication::arguments().value(1).toUInt()));
    service.book = qEnvironmentVariable("JOT_WEB_BOOK", u"sample"_s);
    service.entries = QStringList{
        u"1∴青禾设计二期首付款∴12∴农行∴1∴30000∴∴2016-09-17∴10:21∴首付款⊙合同号：98∴1∴3∴项目收入∴0∴∴∴1∴"_s,
        u"2∴客户来访午餐∴8∴现金∴-1∴326.50∴∴2016-09-17∴12:46∴∴1∴5∴办公费用∴0∴∴∴1∴"_s,
        u"3∴收到货款∴8∴现金∴1∴500∴∴2016-09-20∴08:47∴∴1∴0∴∴4∴东华公司∴500∴-1∴"_s};
    std::printf("JOT_WEB_BASE=%s\n", qPrintable(service.Base()));
    std::fflush(stdout);
    QTimer tell;
    qsizetype told = 0;
    tell.callOnTimeout([&] {
        for (; told < service.seen.size(); ++told)
            std::printf("%s\n", qPrintable(service.seen[told]));
        std::fflush(stdout);
    });
    tell.start(200);
    return QCoreApplication::exec();
}
