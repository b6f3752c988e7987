#pragma once
// ShowMsg: every message of the program goes through here. The window that shows it is put in by the shell;
// tests put in a script.

#include <QByteArray>
#include <QString>

#include <functional>

struct MessageRequest {
    QString text;
    QString buttons;  ///< captions joined by ",", the last one is the default button
    int icon = 4;     ///< 0 info, 1 question, 2 failure, 3 success, 4 warning, 5 emergency, 99 picture
    QString title;
    int width = 392;       ///< smallest width in pixels
    int height = 160;      ///< smallest height in pixels
    QByteArray picture;    ///< an encoded image, or empty
    double opacity = 0.4;  ///< strength of the shadow, 0.2 to 1
};

/// Pictures of a message box by their number.
enum MsgIcon {
    kMsgInfo = 0,
    kMsgAsk = 1,
    kMsgFail = 2,
    kMsgDone = 3,
    kMsgWarn = 4,
    kMsgMayday = 5,
    kMsgNone = 99
};

/// Shows a modal box and returns the pressed button: 1 the last caption (or Enter), 0 the caption before it,
/// Escape or the close button, 2 and 3 the further captions to the left.
int ShowMsg(const QString& text, const QString& buttons = QStringLiteral("确定"), int icon = kMsgWarn,
            const QString& title = QStringLiteral("提示"), int width = 392, int height = 160,
            const QByteArray& picture = {}, double opacity = 0.4);

/// The slot behind ShowMsg. Without one, the text goes to standard error and the answer is 0.
std::function<int(const MessageRequest&)>& MessageSlot();
