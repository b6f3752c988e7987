#include "output/print_target.h"

#include "output/print_painter.h"
#include "shell/file_dialog.h"
#include "store/connection.h"

#include <QApplication>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QSaveFile>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPdfResolution = 1200;
const QString kJobName = u"墨鹊理财打印"_s;

QPageLayout SheetOf(const PrintDocument& document) {
    QPageLayout sheet(QPageSize(QPageSize::A4),
                      document.turned ? QPageLayout::Landscape : QPageLayout::Portrait, {});
    sheet.setMode(QPageLayout::FullPageMode);
    return sheet;
}

PrintTarget AskForPdf(const PrintDocument& document) {
    const QString path = ChooseNewFile(u"打印到 PDF 文件"_s, u"PDF 文件|*.pdf"_s,
                                       QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation),
                                       kJobName + u".pdf"_s, u"pdf"_s);
    return path.isEmpty() ? PrintTarget{} : PdfTarget(path, document);
}

PrintTarget AskForPrinter(const PrintDocument& document) {
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer->setDocName(kJobName);
    printer->setPageLayout(SheetOf(document));
    const int pages = static_cast<int>(document.pages.size());
    QPrintDialog dialog(printer.get(), QApplication::activeWindow());
    dialog.setMinMax(1, pages);
    dialog.setFromTo(1, pages);
    if (dialog.exec() != QDialog::Accepted) return {};
    printer->setPageLayout(SheetOf(document));
    PrintTarget target;
    target.resolution = printer->resolution();
    target.last = document.pages.size() - 1;
    if (printer->printRange() == QPrinter::PageRange && printer->fromPage() >= 1) {
        target.first = static_cast<size_t>(printer->fromPage()) - 1;
        target.last = std::min(target.last, static_cast<size_t>(printer->toPage()) - 1);
    }
    target.finish = [p = printer.get()] {
        if (p->printerState() == QPrinter::Error)
            FailStatement(u"打印机【"_s + p->printerName() + u"】出错"_s, {});
    };
    target.drop = [p = printer.get()] { p->abort(); };
    target.device = std::move(printer);
    return target;
}

PrintTarget AskPlatform(const PrintDocument& document) {
    return QPrinterInfo::availablePrinterNames().isEmpty() ? AskForPdf(document) : AskForPrinter(document);
}

}  // namespace

TargetChooser& TargetSlot() {
    static TargetChooser slot = AskPlatform;
    return slot;
}

PrintTarget PdfTarget(const QString& path, const PrintDocument& document) {
    const auto file = std::make_shared<QSaveFile>(path);
    const auto fail = [file, path] { FailStatement(u"文件写入失败："_s + file->errorString(), path); };
    if (!file->open(QIODevice::WriteOnly)) fail();
    auto writer = std::make_unique<QPdfWriter>(file.get());
    writer->setResolution(kPdfResolution);
    writer->setPageLayout(SheetOf(document));
    writer->setTitle(kJobName);
    writer->setCreator(u"墨鹊理财"_s);
    return {.finish =
                [file, fail] {
                    if (!file->commit()) fail();
                },
            .drop = [file] { file->cancelWriting(); },
            .device = std::move(writer),
            .resolution = kPdfResolution,
            .first = 0,
            .last = document.pages.size() - 1};
}

bool WritePages(PrintTarget& target, const PrintDocument& document, Job& job) {
    QPainter painter;
    if (!painter.begin(target.device.get())) FailStatement(u"打印机无法打开"_s, {});
    for (size_t page = target.first; page <= target.last; ++page) {
        if (page > target.first && !target.device->newPage()) FailStatement(u"打印机不再接收"_s, {});
        PaintPage(painter, document, document.pages[page], target.resolution / 25.4);
        if (!job.GoOn()) {
            target.drop();
            return false;
        }
    }
    painter.end();
    target.finish();
    return true;
}

bool DocPrint(const PrintDocument& document, Job& job, std::optional<size_t> page) {
    PrintDocument one;
    if (page) {
        one.turned = document.turned;
        one.pages = {document.pages[*page]};
    }
    const auto& printed = page ? one : document;
    auto target = TargetSlot()(printed);
    return target.device && WritePages(target, printed, job);
}
