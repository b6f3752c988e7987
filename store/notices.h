#pragma once
// What concerns other windows after a change. A window subscribes for as long as it keeps the token.

#include "store/chart.h"
#include "store/errors.h"

#include <functional>
#include <map>
#include <memory>

/// Keeps one subscription alive.
using NoticeToken = std::shared_ptr<void>;

template <typename... Args>
class Notice {
 public:
    using Handler = std::function<void(Args...)>;

    [[nodiscard]] NoticeToken Subscribe(Handler handler) {
        const int id = ++last_;
        handlers_[id] = std::move(handler);
        return {this, [id](Notice* self) { self->handlers_.erase(id); }};
    }

    /// Never throws into the writer: what a handler fails with has its own box.
    void Emit(Args... args) const {
        const auto now = handlers_;  // a handler may end its own subscription
        for (const auto& heard : now)
            if (handlers_.contains(heard.first)) RunEvent([&] { heard.second(args...); });
    }

    void Clear() { handlers_.clear(); }

 private:
    std::map<int, Handler> handlers_;
    int last_ = 0;
};

/// All notices of the program. They live as long as the process. Whoever writes emits, after the last commit
/// of an action and once for it; a long job tells once at its end, also when it was stopped or has failed.
struct ProgramNotices {
    Notice<> entriesChanged;      ///< entries, their records and with them the balances of both charts
    Notice<Chart> chartChanged;   ///< rows of a chart, and entries that carry their codes or opening balances
    Notice<> booksChanged;        ///< gBooks has another list of books
    Notice<> groupingChanged;     ///< nGroup is another
    Notice<> remindersChanged;    ///< notes, their pictures or messages; the number on the logo
    Notice<> webRowsChanged;      ///< entries of the web ledger that wait, or their history
    Notice<int, QString> webTip;  ///< what the main window tells of the web ledger: SetWebTip(kind, text)
    Notice<bool> webBusy;         ///< a request that the user has asked for runs
};

ProgramNotices& Notices();
