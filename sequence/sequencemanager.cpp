#include "sequencemanager.h"

#include "wholefile.h"

#include <QDebug>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <utility>

namespace vanto
{

SequenceManager::SequenceManager(QObject* parent) : QObject(parent) {}

void SequenceManager::clearSequenceData()
{
    m_data = {};
}

void SequenceManager::insertSequenceDataItem(int index, SequenceDataItem item)
{
    m_data.sequences.insert(index, std::move(item));
}

void SequenceManager::updateSequenceDataItem(int index, SequenceDataItem item)
{
    m_data.sequences[index] = std::move(item);
}

void SequenceManager::swapSequenceDataItem(int index1, int index2)
{
    m_data.sequences.swapItemsAt(index1, index2);
}

void SequenceManager::removeSequenceDataItem(int index)
{
    m_data.sequences.removeAt(index);
}

bool SequenceManager::fail(const QString& reason)
{
    m_fileError = reason;
    return false;
}

bool SequenceManager::failToOpen(const QString& reason)
{
    qDebug("can't open error!");
    return fail(reason);
}

void SequenceManager::failToWrite(const QFileDevice& file)
{
    // A short write is no error for Qt.
    fail(file.error() == QFileDevice::NoError
             ? tr("Not everything could be written. Is the disk full?")
             : file.errorString());
}

bool SequenceManager::loadSequenceData(QFile& file)
{
    m_fileError.clear();
    if (!file.exists())
        return fail(tr("The file does not exist."));
    // Opening a pipe would wait for its writer, and a device may have no end.
    if (!QFileInfo(file).isFile())
        return failToOpen(tr("It is not a regular file."));
    if (!file.open(QIODevice::ReadOnly))
        return failToOpen(file.errorString());
    const QByteArray bytes = file.read(MaxFileBytes + 1);
    const bool readError = file.error() != QFileDevice::NoError;
    const QString reason = file.errorString();
    file.close();
    if (readError)
        return fail(reason);
    if (bytes.size() > MaxFileBytes)
        return fail(tr("The file is larger than 64 MiB."));
    return m_data.fromJSON(bytes) || fail(tr("The file is not a sequence."));
}

bool SequenceManager::saveSequenceData(QFile& file)
{
    m_fileError.clear();
    m_mayHaveDamaged = false;
    const QByteArray json = m_data.toJSON();
    const QFileInfo info(file);
    // A writable file in a folder that is not cannot be replaced.
    if (info.exists() && (!info.isFile() || !QFileInfo(info.canonicalPath()).isWritable()))
        return overwrite(file, json);
    QSaveFile whole(file.fileName());
    if (!whole.open(QIODevice::WriteOnly))
        return failToOpen(whole.errorString());
    if (!writeWhole(whole, json))
        failToWrite(whole);
    return true;
}

bool SequenceManager::overwrite(QFile& file, const QByteArray& json)
{
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return failToOpen(file.errorString());
    m_mayHaveDamaged = file.write(json) != json.size() || !file.flush();
    if (m_mayHaveDamaged)
        failToWrite(file);
    file.close();
    return true;
}

} // namespace vanto
