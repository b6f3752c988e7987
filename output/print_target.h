#pragma once
// Where printed pages go: the printer that the platform's dialog chose, or a PDF.

#include "output/print_document.h"
#include "store/job.h"

#include <QPagedPaintDevice>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

struct PrintTarget {
    std::function<void()> finish = {};  ///< all is painted; throws when it did not get through
    std::function<void()> drop = {};    ///< nothing of it is wanted
    std::unique_ptr<QPagedPaintDevice> device = {};
    int resolution = 0;          ///< of the device, dots per inch
    size_t first = 0, last = 0;  ///< pages wanted, from 0
};

/// Asks where the pages shall go. No device when the user gave up.
using TargetChooser = std::function<PrintTarget(const PrintDocument& document)>;
/// The platform's print dialog; without any printer a file dialog that offers a PDF. Tests put in their own.
TargetChooser& TargetSlot();

/// A PDF, whole or not at all. Throws when it cannot be written.
PrintTarget PdfTarget(const QString& path, const PrintDocument& document);

/// Paints the wanted pages. False when job was stopped meanwhile.
bool WritePages(PrintTarget& target, const PrintDocument& document, Job& job);

/// Asks where, then prints all pages, or one alone. False when the user gave up or stopped it.
bool DocPrint(const PrintDocument& document, Job& job, std::optional<size_t> page = {});
