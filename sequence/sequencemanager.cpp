#include "sequencemanager.h"

#include <QFile>

#include <utility>

namespace vanto
{

namespace
{
bool openFile(QFile& file, QIODevice::OpenMode mode)
{
    if (file.open(mode))
        return true;
    qDebug("can't open error!");
    return false;
}
} // namespace

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

bool SequenceManager::loadSequenceData(QFile& file)
{
    if (!file.exists() || !openFile(file, QIODevice::ReadOnly))
        return false;
    const QByteArray bytes = file.readAll();
    file.close();
    return m_data.fromJSON(bytes);
}

bool SequenceManager::saveSequenceData(QFile& file) const
{
    if (!openFile(file, QIODevice::WriteOnly | QIODevice::Truncate))
        return false;
    file.write(m_data.toJSON());
    file.close();
    return true;
}

} // namespace vanto
