#pragma once
// One request of the driver and its answer.

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

#include <optional>
#include <vector>

/// The boxes that a request has shown, in order, and how its questions are answered.
class BoxLog {
 public:
    BoxLog();
    ~BoxLog();
    /// Caption of the button to press; empty: the one that goes on.
    void SetAnswer(const QString& caption) { answer_ = caption; }
    const QJsonArray& Boxes() const { return boxes_; }
    QString LastText() const;

 private:
    QString answer_;
    QJsonArray boxes_;
};

/// Carries out one request on the open book. Never throws.
QJsonObject Answer(const QJsonObject& request);

/// The whole numbers of the field "ids"; nullopt when it is no list of such.
std::optional<std::vector<qint64>> IdsOf(const QJsonObject& request);

QJsonObject Refusal(const QString& message, const QString& focus);
QJsonObject Failure(const QString& error);

// The requests on entries, charts and templates.
QJsonObject AnswerSave(const QJsonObject& request);
QJsonObject AnswerLoad(const QJsonObject& request);
QJsonObject AnswerEdit(const QJsonObject& request);
QJsonObject AnswerDelete(const QJsonObject& request);
QJsonObject AnswerDeleteChecked(const QJsonObject& request);
QJsonObject AnswerList(const QJsonObject& request);
QJsonObject AnswerRecords(const QJsonObject& request);
QJsonObject AnswerChart(const QJsonObject& request);
QJsonObject AnswerTemplates(const QJsonObject& request);
QJsonObject AnswerTemplateAdd(const QJsonObject& request);
QJsonObject AnswerTemplateDelete(const QJsonObject& request);

/// Value of the request "texts": a named helper on its arguments. Adds "value", or "error" for an unknown
/// one.
QJsonObject AnswerTexts(const QJsonObject& request);
