#include "shell/addresses.h"

#include "store/messages.h"
#include "store/outside.h"

using namespace Qt::StringLiterals;

void OpenAddress(const QString& address) {
    if (!Outside().open(address)) ShowMsg(u"没有找到可以打开网页的浏览器：\n【"_s + address + u"】"_s);
}
