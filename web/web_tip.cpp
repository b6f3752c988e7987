#include "web/web_tip.h"

#include "store/notices.h"
#include "store/state.h"

using namespace Qt::StringLiterals;

void SetWebTip(int kind, const QString& text) {
    auto& web = State().web;
    const QString told = kind == kTipState && text.isEmpty() ? u"正常"_s : text;
    if (kind == kTipState) web.word = told;
    if (kind == kTipCount) web.count = told;
    Notices().webTip.Emit(kind, told);
}
