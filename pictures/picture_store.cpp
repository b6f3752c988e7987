#include "pictures/picture_store.h"

#include "store/book_format.h"
#include "store/notices.h"
#include "store/picture_index.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool WriteWhole(const QString& path, const QByteArray& bytes) {
    QFile::remove(path);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) return false;
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    return file.write(bytes) == bytes.size() && file.flush();
}

QByteArray BytesOf(const OwnerPicture& picture) {
    return picture.held ? *picture.held : FileToBytes(picture.path);
}

void AddRows(cConnection& book, const OwnerRow& owner, const std::vector<OwnerPicture>& pictures,
             const std::vector<QByteArray>& bytes) {
    auto rows = book.OpenRecordset(u"select * from tPic where 0"_s);
    for (size_t i = 0; i < pictures.size(); ++i) {
        rows.AddRow();
        rows.Set(u"Id1", NewId(book, u"tpic"_s));
        rows.Set(u"Note1", pictures[i].note);
        rows.Set(u"lFromId", owner.id);
        rows.Set(u"lFromId1", owner.id);
        rows.Set(u"sFromTable", owner.table);
        if (!bytes[i].isEmpty()) rows.SetBlob(u"bitPic", bytes[i]);
        rows.Update();
        AddPictureOwner(book, {rows.RowId(), owner.table, owner.id, owner.id});
    }
}

}  // namespace

std::vector<OwnerPicture> LoadOwnerPictures(cConnection& book, const OwnerRow& owner) {
    const QString where = WherePicturesOf(book, owner.table, owner.id, owner.single);
    if (where.isEmpty()) return {};
    std::vector<OwnerPicture> pictures;
    const QString folder = TempPictureFolder();
    for (auto rows = book.OpenRecordset(u"select bitPic,Note1 from tPic"_s + where); !rows.Eof();
         rows.MoveNext()) {
        const QString name = u"/KestroJotPic"_s + QString::number(pictures.size()) + u".jpg"_s;
        OwnerPicture picture{folder + name, rows.Text(u"Note1"), rows.Blob(u"bitPic")};
        if (!WriteWhole(picture.path, *picture.held)) {  // in a shared folder the name can be another user's
            picture.path = OwnPictureFolder() + name;
            WriteWhole(picture.path, *picture.held);
        }
        pictures.push_back(std::move(picture));
    }
    return pictures;
}

// With TEMP set, another copy of the program uses the same names.
void RefreshTempFile(const OwnerPicture& picture) {
    if (!picture.held || !QFileInfo(picture.path).isFile()) return;
    QFile file(picture.path);
    if (file.open(QIODevice::ReadOnly) && file.size() == picture.held->size() &&
        file.readAll() == *picture.held)
        return;
    file.close();
    WriteWhole(picture.path, *picture.held);
}

QString ComplaintOfAdding(const std::vector<QString>& paths, const QString& path) {
    if (std::find(paths.begin(), paths.end(), path) != paths.end()) return u"已经添加，不能重复添加!"_s;
    if (QFileInfo(path).size() > kMostPictureBytes) return u"图片不能大于 300 K !"_s;
    return {};
}

OwnerPicture NewPicture(const QString& path) {
    return {path, QFileInfo(path).completeBaseName(), {}};
}

int SaveOwnerPictures(cConnection& book, const OwnerRow& owner, const std::vector<OwnerPicture>& pictures) {
    std::vector<QByteArray> bytes;
    for (const auto& picture : pictures)
        bytes.push_back(BytesOf(picture));
    const int count = static_cast<int>(pictures.size());
    Transaction change(book);
    DeletePicturesOfFirst(book, owner.table, owner.id);
    AddRows(book, owner, pictures, bytes);
    if (book.RowOf(owner.table, owner.id))
        book.Execute(u"update "_s + owner.table + u" set sPic='"_s + QString::number(count) + u"' where "_s +
                     book.WhereIds(owner.table, {owner.id}));
    change.Commit();
    if (owner.id != -1) {
        const bool entry = owner.table.compare(u"tAccount"_s, Qt::CaseInsensitive) == 0;
        (entry ? Notices().entriesChanged : Notices().remindersChanged).Emit();
    }
    return count;
}
