#include "store/errors.h"

#include "store/connection.h"
#include "store/messages.h"

#include <exception>

using namespace Qt::StringLiterals;

namespace {

constexpr int kUnknownError = -1;

PendingError Caught(const std::exception_ptr& failure) noexcept {
    PendingError error;
    try {
        std::rethrow_exception(failure);
    } catch (const DbError& e) {
        error = {e.number, e.source, e.description, e.statement, e.hint};
    } catch (const std::exception& e) {
        error = {kUnknownError, u"KestroJot"_s, QString::fromUtf8(e.what()), {}, {}};
    } catch (...) {
        error = {kUnknownError, u"KestroJot"_s, u"未知错误"_s, {}, {}};
    }
    return error;
}

}  // namespace

PendingError& LastError() {
    static PendingError error;
    return error;
}

bool RunEvent(const std::function<void()>& body, const QString& hint) {
    PendingError failed;
    if (Succeeds(body, &failed)) return true;
    TellFailure(failed, hint);
    return false;
}

bool Succeeds(const std::function<void()>& body, PendingError* failed) {
    if (!body) return true;
    try {
        body();
        return true;
    } catch (...) {
        const auto error = Caught(std::current_exception());
        if (failed) *failed = error;
        return false;
    }
}

void TellFailure(const PendingError& failed, const QString& hint) {
    LastError() = failed;
    ReportError(hint);
}

void ReportError(const QString& hint) {
    const auto error = LastError();
    if (error.number == 0) return;
    LastError() = {};
    Succeeds([&] { ShowMsg(ErrorText(error, hint), u"确定"_s, kMsgFail, u"意外错误"_s, 392, 200); });
}

QString LikelyReason(const PendingError& error) {
    const bool settings = error.source == u"Set.ini";
    const QString file = settings ? u"设置文件"_s : u"账本文件"_s;
    switch (FaultOf(error.number)) {
        case DbFault::busy:
            return (settings ? file : u"账本"_s) + u"正被别的程序使用"_s;
        case DbFault::readOnly:
            return file + u"是只读的"_s;
        case DbFault::moved:
            return file + u"已被移动或删除"_s;
        case DbFault::noBook:
        case DbFault::other:
            break;
    }
    return {};
}

QString ErrorText(const PendingError& error, const QString& hint) {
    QStringList lines{u"意外错误，错误信息："_s, u"错误号："_s + QString::number(error.number),
                      u"错误来源："_s + error.source, u"错误描述："_s + error.description};
    const auto known = hint.isEmpty() ? error.hint : hint;
    const auto reason = known.isEmpty() ? LikelyReason(error) : known;
    if (!reason.isEmpty()) lines << u"导致错误的原因可能是："_s << reason;
    return lines.join(u'\n');
}
