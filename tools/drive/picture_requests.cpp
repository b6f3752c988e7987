// The driver's requests on pictures: those of an owner, the file list of a folder, the image helper.

#include "pictures/gdi_image.h"
#include "pictures/picture_store.h"
#include "store/messages.h"
#include "store/state.h"
#include "tools/drive/request.h"

#include <QCryptographicHash>

using namespace Qt::StringLiterals;

namespace {

OwnerRow OwnerOf(const QJsonObject& r) {
    return {r[u"table"].toString(), r[u"id"].toInteger(), r[u"single"].toBool()};
}

bool IsOwnerTable(const QString& table) {
    return table.compare(u"tAccount"_s, Qt::CaseInsensitive) == 0 ||
           table.compare(u"tNoteBook"_s, Qt::CaseInsensitive) == 0;
}

QJsonObject AnswerPictures(const QJsonObject& r) {
    if (!IsOwnerTable(r[u"table"].toString())) return Failure(u"bad field: table"_s);
    QJsonArray items;
    for (const auto& picture : LoadOwnerPictures(State().gDB, OwnerOf(r))) {
        const auto hash = QCryptographicHash::hash(*picture.held, QCryptographicHash::Sha1).toHex();
        items.append(QJsonObject{{u"note"_s, picture.note},
                                 {u"bytes"_s, picture.held->size()},
                                 {u"sha1"_s, QString::fromLatin1(hash)}});
    }
    return {{u"ok"_s, true}, {u"items"_s, items}};
}

// The list of the window as the request describes it: pictures kept by their number, and added files.
struct Wanted {
    std::vector<OwnerPicture> list;
    QString wrong;      ///< what is wrong with the request
    QString complaint;  ///< why the window would refuse a file
};

Wanted WantedOf(const QJsonArray& items, const std::vector<OwnerPicture>& stored) {
    Wanted wanted;
    std::vector<QString> paths;
    for (const auto& value : items) {
        const auto item = value.toObject();
        const auto keep = item[u"keep"].toInteger(-1);
        const QString file = item[u"file"].toString();
        const bool kept = keep >= 0 && keep < static_cast<qint64>(stored.size());
        if (!kept && file.isEmpty()) return {{}, u"bad field: items"_s, {}};
        const auto picture = kept ? stored[static_cast<size_t>(keep)] : NewPicture(file);
        const QString complaint = ComplaintOfAdding(paths, picture.path);
        if (!complaint.isEmpty() && !kept) return {{}, {}, complaint};
        paths.push_back(picture.path);
        wanted.list.push_back(picture);
        const QString note = item[u"note"].toString().trimmed();
        if (!note.isEmpty()) wanted.list.back().note = note;
    }
    return wanted;
}

QJsonObject AnswerPicturesSave(const QJsonObject& r) {
    if (!IsOwnerTable(r[u"table"].toString())) return Failure(u"bad field: table"_s);
    if (!r[u"items"].isArray()) return Failure(u"missing field: items"_s);
    auto& book = State().gDB;
    const auto wanted = WantedOf(r[u"items"].toArray(), LoadOwnerPictures(book, OwnerOf(r)));
    if (!wanted.wrong.isEmpty()) return Failure(wanted.wrong);
    if (!wanted.complaint.isEmpty()) {
        ShowMsg(wanted.complaint);
        return Refusal({}, {});
    }
    return {{u"ok"_s, true}, {u"count"_s, SaveOwnerPictures(book, OwnerOf(r), wanted.list)}};
}

QJsonObject AnswerFolder(const QJsonObject& r) {
    QJsonArray lines;
    for (const auto& file : PictureFilesIn(r[u"path"].toString()))
        lines.append(
            QJsonObject{{u"key"_s, file.path},
                        {u"cells"_s, QJsonArray{QString::number(lines.size() + 1), file.name, file.size}},
                        {u"over"_s, file.over}});
    return {{u"ok"_s, true}, {u"lines"_s, lines}};
}

int Carry(cGdiImage& image, const QString& file, const QString& op, const QJsonArray& args) {
    const auto whole = [&](int i) { return args.at(i).toInt(); };
    if (op == u"thumbnail") {
        image.Thumbnail(file, whole(0), whole(1), args.at(2).toBool());
        return image.LoadStatus();
    }
    if (!image.Load(file)) return image.LoadStatus();
    return op == u"resize" ? image.ReSize(whole(0), whole(1), args.at(2).toBool()) : image.Rotate(whole(0));
}

QJsonObject AnswerImage(const QJsonObject& r) {
    const QString op = r[u"op"].toString(), file = r[u"file"].toString(), out = r[u"out"].toString();
    if (op != u"thumbnail" && op != u"resize" && op != u"rotate") return Failure(u"bad field: op"_s);
    cGdiImage image;
    int status = Carry(image, file, op, r[u"args"].toArray());
    if (status == kGdiOk && !out.isEmpty()) status = image.SaveJpeg(out);
    QJsonObject answer{{u"ok"_s, status == kGdiOk},
                       {u"status"_s, status},
                       {u"width"_s, image.ImageWidth()},
                       {u"height"_s, image.ImageHeight()}};
    if (status != kGdiOk) answer[u"message"] = GdiErrorMessage(status, op, file);
    return answer;
}

}  // namespace

std::span<const Request> PictureRequests() {
    using enum FieldType;
    static const std::vector<Field> owner{{u"table", text, true}, {u"id", number, true}, {u"single", flag}};
    static const Request requests[] = {
        {u"pictures", owner, AnswerPictures},
        {u"picturesSave", owner, AnswerPicturesSave},
        {u"folder", {{u"path", text, true}}, AnswerFolder},
        {u"image", {{u"file", text, true}, {u"op", text, true}, {u"out", text}}, AnswerImage},
    };
    return requests;
}
