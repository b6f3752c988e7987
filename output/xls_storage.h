#pragma once
// The container of an old spreadsheet file: a compound file with one stream.

#include <QByteArray>
#include <QString>

/// A compound file (version 3, sectors of 512 bytes) that holds bytes as the stream of this name, filled up
/// with zeros to the least size of a stream in whole sectors. Format: [MS-CFB].
QByteArray CompoundFile(const QString& name, QByteArray bytes);

/// Little-endian numbers at the end of bytes.
void Put16(QByteArray& bytes, quint32 value);
void Put32(QByteArray& bytes, quint32 value);
