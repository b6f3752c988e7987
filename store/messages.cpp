#include "store/messages.h"

#include "store/state.h"

#include <algorithm>
#include <cstdio>

std::function<int(const MessageRequest&)>& MessageSlot() {
    static std::function<int(const MessageRequest&)> slot;
    return slot;
}

int ShowMsg(const QString& text, const QString& buttons, int icon, const QString& title, int width,
            int height, const QByteArray& picture, double opacity) {
    auto& result = State().gMsgResult;
    result = 0;
    if (const auto& slot = MessageSlot()) {
        result = slot({text, buttons, icon, title, width, height, picture, std::clamp(opacity, 0.2, 1.0)});
    } else {
        std::fprintf(stderr, "%s: %s\n", qUtf8Printable(title), qUtf8Printable(text));
    }
    return result;
}
