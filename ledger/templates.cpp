#include "ledger/templates.h"

#include <QStringList>

#include "store/entry_rows.h"
#include "store/messages.h"

using namespace Qt::StringLiterals;

std::vector<EntryTemplate> ReadTemplates(cConnection& book) {
    auto rows = book.Read(u"select id1,Title1 from tAccountTemplate"_s);
    std::vector<EntryTemplate> templates;
    while (rows.Next())
        templates.push_back({rows.Int(0), rows.Text(1)});
    return templates;
}

bool AddTemplate(cConnection& book, qint64 entryRow) {
    const auto entry = FindRow(book, u"tAccount"_s, entryRow);
    if (!entry) {
        ShowMsg(u"意外错误!"_s, u"确定"_s, kMsgFail);
        return false;
    }
    const QString title = entry->Text(u"Title1");
    auto same = book.OpenRecordset(u"select * from tAccountTemplate where Title1="_s + Quote(title));
    if (!same.Eof()) {
        ShowMsg(u"已经有相同的事情标题!"_s);
        return false;
    }
    same.AddRow();
    same.Set(u"Title1", title);
    same.Update();
    ShowMsg(u"增加标题成功!"_s, u"确定"_s, kMsgDone);
    return true;
}

bool DeleteTemplatesAsked(cConnection& book, const std::vector<qint64>& ids) {
    if (ShowMsg(u"您确定要【删除】选定的一条或多条记录?"_s, u"取消,确定"_s, kMsgAsk) != 1) return false;
    if (ids.empty()) {
        ShowMsg(u"【没有选定】任何记录!"_s);
        return false;
    }
    DeleteTemplates(book, ids);
    return true;
}

void DeleteTemplates(cConnection& book, const std::vector<qint64>& ids) {
    QStringList texts;
    for (const qint64 id : ids)
        texts << QString::number(id);
    book.Execute(u"delete from tAccountTemplate where id1 in("_s + texts.join(u',') + u')');
}
