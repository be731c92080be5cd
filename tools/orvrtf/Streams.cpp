#include "Streams.h"

#include <QFileInfo>
#include <QSaveFile>

#include <cstdio>

namespace {

const char* const standardStream = "-";
const int chunkSize = 65536;

bool writeAll(QFileDevice& device, const QByteArray& data, QString* errorString)
{
    if (device.write(data) == data.size() && device.flush())
        return true;
    *errorString = device.errorString();
    return false;
}

/*! For the standard output and for devices and pipes, which a file renamed into place would replace. */
bool writeDirectly(QFile& file, bool isOpen, const QByteArray& data, QString* errorString)
{
    if (!isOpen) {
        *errorString = file.errorString();
        return false;
    }
    return writeAll(file, data, errorString);
}

bool writeThroughTemporaryFile(const QString& path, const QByteArray& data, QString* errorString)
{
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly)) {
        if (!writeAll(file, data, errorString))
            return false;
        if (file.commit())
            return true;
    }
    *errorString = file.errorString();
    return false;
}

} // namespace

bool InputStream::open(const QString& path)
{
    bool isOpen = false;
    if (path == QLatin1String(standardStream)) {
        isOpen = m_file.open(fileno(stdin), QIODevice::ReadOnly);
    } else {
        m_file.setFileName(path);
        isOpen = m_file.open(QIODevice::ReadOnly);
    }
    // Of a directory, for one, only reading tells that it cannot be read.
    char first = 0;
    if (!isOpen || m_file.peek(&first, 1) < 0) {
        m_errorString = m_file.errorString();
        return false;
    }
    return !m_file.isSequential() || spool();
}

QIODevice* InputStream::device()
{
    if (m_spooled)
        return &m_spool;
    return &m_file;
}

bool InputStream::isReadToEnd()
{
    if (device()->atEnd())
        return true;
    m_errorString = QLatin1String("reading stopped before the end");
    return false;
}

bool InputStream::spool()
{
    m_spooled = true;
    QByteArray chunk(chunkSize, Qt::Uninitialized);
    bool isWritten = m_spool.open();
    qint64 count = 0;
    while (isWritten && (count = m_file.read(chunk.data(), chunk.size())) > 0)
        isWritten = m_spool.write(chunk.constData(), count) == count;
    if (count < 0) {
        m_errorString = m_file.errorString();
        return false;
    }
    if (isWritten && m_spool.seek(0))
        return true;
    m_errorString = QString::fromLatin1("no temporary file: %1").arg(m_spool.errorString());
    return false;
}

bool writeOutput(const QString& path, const QByteArray& data, QString* errorString)
{
    QFile file(path);
    if (path == QLatin1String(standardStream))
        return writeDirectly(file, file.open(stdout, QIODevice::WriteOnly), data, errorString);
    const QFileInfo info(path);
    if (info.exists() && !info.isFile() && !info.isDir())
        return writeDirectly(file, file.open(QIODevice::WriteOnly), data, errorString);
    return writeThroughTemporaryFile(path, data, errorString);
}

void printError(const QString& message)
{
    const QByteArray line = message.simplified().toLocal8Bit();
    std::fprintf(stderr, "orvrtf: %s\n", line.constData());
}
