#pragma once
// Windows icon files: a directory of PNG pictures.

#include <QByteArray>
#include <QImage>

#include <vector>

/// The bytes of an .ico with these pictures, each at most 256 pixels wide.
QByteArray IcoBytes(const std::vector<QImage>& pictures);

/// The picture of the icon set at the usual sizes 16, 32, 48 and 256 as .ico bytes.
QByteArray IconSetIco(const QString& name);
