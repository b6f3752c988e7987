#include "store/dialogs.h"

#include <map>

namespace {
std::map<int, DialogOpener>& Openers() {
    static std::map<int, DialogOpener> openers;
    return openers;
}
}  // namespace

void RegisterDialog(int code, DialogOpener opener) {
    Openers()[code] = std::move(opener);
}

bool HasDialog(int code) {
    return Openers().contains(code);
}

void ClearDialogs() {
    Openers().clear();
}

bool OpenModal(int code, QPoint at) {
    const auto found = Openers().find(code);
    if (found == Openers().end()) return false;
    const PageScope page(code);
    found->second(at);
    return true;
}
