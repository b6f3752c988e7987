#include "store/picture_index.h"

#include <QStringList>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

struct Index {
    qint64 connection = -1;
    qint64 dataVersion = -1;
    std::vector<PictureOwner> owners;
};

Index& Kept() {
    static Index index;
    return index;
}

bool IsCurrent(cConnection& book) {
    return Kept().connection == book.Serial() && Kept().dataVersion == book.DataVersion();
}

// " where rowid in (…)" of the pictures that fit; empty when none does.
QString Where(cConnection& book, const std::function<bool(const PictureOwner&)>& fits) {
    QStringList rows;
    for (const auto& owner : PictureOwners(book))
        if (fits(owner)) rows << QString::number(owner.rowId);
    return rows.isEmpty() ? QString() : u" where rowid in ("_s + rows.join(u',') + u')';
}

void Delete(cConnection& book, const std::function<bool(const PictureOwner&)>& fits) {
    const QString where = Where(book, fits);
    if (where.isEmpty()) return;
    book.Execute(u"delete from tPic"_s + where);
    std::erase_if(Kept().owners, fits);
}

}  // namespace

const std::vector<PictureOwner>& PictureOwners(cConnection& book) {
    auto& kept = Kept();
    if (IsCurrent(book)) return kept.owners;
    const qint64 version = book.DataVersion();
    kept.owners.clear();
    for (auto rows = book.Read(u"select rowid,sFromTable,lFromId,lFromId1 from tPic"_s); rows.Next();)
        kept.owners.push_back({rows.Int(0), rows.Text(1).toLower(), rows.Int(2), rows.Int(3)});
    kept.connection = book.Serial();
    kept.dataVersion = version;
    return kept.owners;
}

void ForgetPictureOwners() {
    Kept() = {};
}

int CountPictures(cConnection& book, const QString& table, qint64 row, qint64 second) {
    const auto& owners = PictureOwners(book);
    const QString name = table.toLower();
    return static_cast<int>(std::count_if(owners.begin(), owners.end(), [&](const PictureOwner& owner) {
        return owner.table == name && (owner.from == row || owner.from1 == second);
    }));
}

QString WherePicturesOf(cConnection& book, const QString& table, qint64 row, bool firstAlone) {
    const QString name = table.toLower();
    return Where(book, [&](const PictureOwner& owner) {
        return owner.table == name && (owner.from == row || (!firstAlone && owner.from1 == row));
    });
}

void AddPictureOwner(cConnection& book, const PictureOwner& owner) {
    if (!IsCurrent(book)) return;
    Kept().owners.push_back({owner.rowId, owner.table.toLower(), owner.from, owner.from1});
}

void DeletePicturesOfFirst(cConnection& book, const QString& table, qint64 row) {
    const QString name = table.toLower();
    Delete(book, [&](const PictureOwner& owner) { return owner.table == name && owner.from == row; });
}

void ClaimPictures(cConnection& book, qint64 main, qint64 second) {
    const auto waits = [](const PictureOwner& owner) {
        return owner.table == u"taccount" && owner.from == -1;
    };
    const QString where = Where(book, waits);
    if (where.isEmpty()) return;
    book.Execute(u"Update tPic set lFromId= "_s + QString::number(main) + u", lFromId1= "_s +
                 QString::number(second) + where);
    for (auto& owner : Kept().owners)
        if (waits(owner)) {
            owner.from = main;
            owner.from1 = second;
        }
}

void DeleteUnclaimed(cConnection& book, const QString& table) {
    const QString name = table.toLower();
    Delete(book, [&](const PictureOwner& owner) {
        return owner.table == name && owner.from == -1 && owner.from1 == -1;
    });
}

void ClaimNotePictures(cConnection& book, qint64 note) {
    const auto waits = [](const PictureOwner& owner) {
        return owner.table == u"tnotebook" && owner.from == -1;
    };
    const QString where = Where(book, waits);
    if (where.isEmpty()) return;
    book.Execute(u"update tPic set lFromId="_s + QString::number(note) + where);
    for (auto& owner : Kept().owners)
        if (waits(owner)) owner.from = note;
}

void DropPendingPictures(cConnection& book) {
    Delete(book, [](const PictureOwner& owner) { return owner.from == -1; });
}

void DeletePicturesOf(cConnection& book, const QString& table, const std::set<qint64>& rows) {
    const QString name = table.toLower();
    Delete(book, [&](const PictureOwner& owner) { return owner.table == name && rows.contains(owner.from); });
}

void DeletePictures(cConnection& book, const QString& table, qint64 row) {
    const QString name = table.toLower();
    Delete(book, [&](const PictureOwner& owner) {
        return owner.table == name && (owner.from == row || owner.from1 == row);
    });
}
