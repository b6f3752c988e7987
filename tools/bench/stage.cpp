#include "tools/bench/stage.h"

#include "store/state.h"
#include "tools/bench/counting_vfs.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

void OpenBook(const QString& path) {
    cConnection::Seams().vfs = CountingVfs();
    auto& state = State();
    state.gBooks.assign(1, {path, u"bench"_s, 2016, u"10.0"_s});
    state.gCurBook = 0;
    state.settings.LoadDate = u"all"_s;
    state.gDB.Open(path);
}

Consent::Consent() : kept_(MessageSlot()) {
    MessageSlot() = [](const MessageRequest&) { return 1; };
}

Consent::~Consent() {
    MessageSlot() = kept_;
}

EntryPasses::EntryPasses() {
    cConnection::Seams().onScan = [this](const QString& sql) {
        static const QRegularExpression entries(u"\\b(from|update|into) +taccount\\b"_s,
                                                QRegularExpression::CaseInsensitiveOption);
        if (sql.contains(entries) && !statements_.contains(sql)) statements_ << sql;
    };
}

EntryPasses::~EntryPasses() {
    cConnection::Seams().onScan = {};
}
