#pragma once
// What concerns other windows after a change. A window subscribes for as long as it keeps the token.

#include <QString>

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

    void Emit(Args... args) const {
        const auto now = handlers_;  // a handler may end its own subscription
        for (const auto& [id, handler] : now)
            if (handlers_.contains(id)) handler(args...);
    }

    void Clear() { handlers_.clear(); }

 private:
    std::map<int, Handler> handlers_;
    int last_ = 0;
};

/// All notices of the program. They live as long as the process.
struct ProgramNotices {
    Notice<const QString&> chartChanged;  ///< table name: tKind or tSubAcc
    Notice<> booksChanged;                ///< gBooks has another list of books
    Notice<qint64> entrySaved;            ///< id of the main row of an entry made outside the list
    Notice<> remindersChanged;            ///< the number on the logo may be another
};

ProgramNotices& Notices();
