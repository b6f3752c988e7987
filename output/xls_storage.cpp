#include "output/xls_storage.h"

#include <QtEndian>

#include <algorithm>
#include <vector>

namespace {

constexpr qsizetype kSector = 512;
constexpr qsizetype kLeastStream = 4096;  // smaller ones would have to go into sectors of their own kind
constexpr quint32 kPerSector = kSector / 4;
constexpr quint32 kInHeader = 109;  // allocation sectors that the header itself names
constexpr quint32 kFree = 0xFFFFFFFF, kEndOfChain = 0xFFFFFFFE, kAllocation = 0xFFFFFFFD,
                  kMoreAllocation = 0xFFFFFFFC;

quint32 SectorsFor(quint32 items, quint32 perSector) {
    return (items + perSector - 1) / perSector;
}

/// How the file is cut into sectors: the stream, the directory, the allocation table, and what names the part
/// of the table that the header has no room for.
struct Plan {
    quint32 stream = 0, allocation = 0, more = 0;

    quint32 Directory() const { return stream; }
    quint32 FirstAllocation() const { return stream + 1; }
    quint32 FirstMore() const { return FirstAllocation() + allocation; }
    quint32 All() const { return FirstMore() + more; }
};

Plan PlanFor(quint32 streamSectors) {
    Plan plan{streamSectors, 1, 0};
    for (quint32 was = 0; was != plan.allocation;) {
        was = plan.allocation;
        plan.more = was > kInHeader ? SectorsFor(was - kInHeader, kPerSector - 1) : 0;
        plan.allocation = SectorsFor(plan.All(), kPerSector);
    }
    return plan;
}

void FillTo(QByteArray& bytes, qsizetype size, char with) {
    bytes.append(std::max<qsizetype>(0, size - bytes.size()), with);
}

QByteArray Header(const Plan& plan) {
    QByteArray header = QByteArray::fromHex("d0cf11e0a1b11ae1");
    FillTo(header, 24, '\0');
    Put16(header, 0x3E);    // minor version
    Put16(header, 3);       // major version
    Put16(header, 0xFFFE);  // little-endian
    Put16(header, 9);       // sectors of 2^9 bytes
    Put16(header, 6);       // small sectors of 2^6 bytes
    FillTo(header, 44, '\0');
    Put32(header, plan.allocation);
    Put32(header, plan.Directory());
    Put32(header, 0);
    Put32(header, kLeastStream);
    Put32(header, kEndOfChain);  // no small sectors
    Put32(header, 0);
    Put32(header, plan.more > 0 ? plan.FirstMore() : kEndOfChain);
    Put32(header, plan.more);
    for (quint32 i = 0; i < kInHeader; ++i)
        Put32(header, i < plan.allocation ? plan.FirstAllocation() + i : kFree);
    return header;
}

void PutEntry(QByteArray& directory, const QString& name, char type, quint32 child, quint32 start,
              quint32 size) {
    const qsizetype begin = directory.size();
    for (const QChar c : name)
        Put16(directory, c.unicode());
    FillTo(directory, begin + 64, '\0');
    Put16(directory, static_cast<quint32>(name.size() + 1) * 2);
    directory.append(type);
    directory.append('\1');  // black
    Put32(directory, kFree);
    Put32(directory, kFree);
    Put32(directory, child);
    FillTo(directory, begin + 116, '\0');
    Put32(directory, start);
    Put32(directory, size);
    FillTo(directory, begin + 128, '\0');
}

QByteArray Directory(const QString& name, quint32 size) {
    QByteArray directory;
    PutEntry(directory, QStringLiteral("Root Entry"), '\5', 1, kEndOfChain, 0);
    PutEntry(directory, name, '\2', kFree, 0, size);
    for (int i = 0; i < 2; ++i) {  // unused entries
        FillTo(directory, directory.size() + 68, '\0');
        for (int link = 0; link < 3; ++link)
            Put32(directory, kFree);
        FillTo(directory, directory.size() + 48, '\0');
    }
    return directory;
}

QByteArray Allocation(const Plan& plan) {
    QByteArray table;
    for (quint32 sector = 0; sector < plan.allocation * kPerSector; ++sector) {
        if (sector < plan.stream)
            Put32(table, sector + 1 == plan.stream ? kEndOfChain : sector + 1);
        else if (sector == plan.Directory())
            Put32(table, kEndOfChain);
        else if (sector < plan.FirstMore())
            Put32(table, kAllocation);
        else
            Put32(table, sector < plan.All() ? kMoreAllocation : kFree);
    }
    return table;
}

QByteArray MoreAllocation(const Plan& plan) {
    QByteArray table;
    quint32 named = kInHeader;
    for (quint32 sector = 0; sector < plan.more; ++sector) {
        for (quint32 i = 0; i + 1 < kPerSector; ++i, ++named)
            Put32(table, named < plan.allocation ? plan.FirstAllocation() + named : kFree);
        Put32(table, sector + 1 < plan.more ? plan.FirstMore() + sector + 1 : kEndOfChain);
    }
    return table;
}

}  // namespace

void Put16(QByteArray& bytes, quint32 value) {
    const auto little = qToLittleEndian(static_cast<quint16>(value));
    bytes.append(reinterpret_cast<const char*>(&little), 2);
}

void Put32(QByteArray& bytes, quint32 value) {
    const auto little = qToLittleEndian(value);
    bytes.append(reinterpret_cast<const char*>(&little), 4);
}

QByteArray CompoundFile(const QString& name, QByteArray bytes) {
    const qsizetype size = (std::max(bytes.size(), kLeastStream) + kSector - 1) / kSector * kSector;
    FillTo(bytes, size, '\0');
    const Plan plan = PlanFor(static_cast<quint32>(size / kSector));
    QByteArray file = Header(plan);
    file.reserve((plan.All() + 1) * kSector);
    file += bytes;
    file += Directory(name, static_cast<quint32>(size));
    file += Allocation(plan);
    file += MoreAllocation(plan);
    return file;
}
