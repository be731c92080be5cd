#include "Streams.h"

#include "Messages.h"

#include <QFileInfo>

#include <cstdio>

namespace {

const char* const standardStream = "-";
const int chunkSize = 65536;

} // namespace

bool InputStream::PatientFile::atEnd() const
{
    char next = 0;
    if (isSequential())
        return const_cast<PatientFile*>(this)->peek(&next, 1) < 1;
    return QFile::atEnd();
}

bool InputStream::open(const QString& path, Pipes pipes)
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
    return !m_file.isSequential() || pipes == Streamed || spool();
}

QIODevice* InputStream::device()
{
    if (m_spooled)
        return &m_spool;
    return &m_file;
}

bool InputStream::isReadToEnd()
{
    if (device()->atEnd() && m_file.error() == QFile::NoError)
        return true;
    m_errorString = Messages::tr("reading stopped before the end");
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
    m_errorString = Messages::tr("no temporary file: %1").arg(m_spool.errorString());
    return false;
}

qint64 OutputStream::FailureKeeper::writeData(const char* data, qint64 length)
{
    const qint64 written = target->write(data, length);
    if (written != length && failure.isEmpty())
        failure = target->errorString();
    return written;
}

bool OutputStream::open(const QString& path)
{
    if (path == QLatin1String(standardStream))
        return opened(m_direct, m_direct.open(stdout, QIODevice::WriteOnly));
    const QFileInfo info(path);
    if (info.exists() && !info.isFile() && !info.isDir()) {
        m_direct.setFileName(path);
        return opened(m_direct, m_direct.open(QIODevice::WriteOnly));
    }
    const InterruptionBlock block;
    m_file.setFileName(path);
    const bool isOpen = m_file.open(QIODevice::WriteOnly);
    if (isOpen)
        m_unfinished.watch(m_file.handle());
    return opened(m_file, isOpen);
}

bool OutputStream::opened(QFileDevice& file, bool isOpen)
{
    if (!isOpen) {
        m_errorString = file.errorString();
        return false;
    }
    m_device.target = &file;
    return m_device.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

bool OutputStream::finish()
{
    // The file may have two names for a moment, one of them to be replaced.
    const InterruptionBlock block;
    m_errorString = m_device.failure;
    if (m_errorString.isEmpty()
        && (!m_device.target->flush() || (m_device.target == &m_file && !m_file.commit())))
        m_errorString = m_device.target->errorString();
    return m_errorString.isEmpty();
}

bool OutputStream::finishWith(const QByteArray& data)
{
    m_device.write(data);
    return finish();
}

bool writeOutput(const QString& path, const QByteArray& data, QString* errorString)
{
    OutputStream output;
    const bool isWritten = output.open(path) && output.finishWith(data);
    if (!isWritten)
        *errorString = output.errorString();
    return isWritten;
}

QString shownInput(const QString& path)
{
    return path == QLatin1String(standardStream) ? Messages::tr("standard input") : path;
}

QString shownOutput(const QString& path)
{
    return path == QLatin1String(standardStream) ? Messages::tr("standard output") : path;
}

QByteArray errorLine(const QString& message)
{
    return "orvrtf: " + message.simplified().toLocal8Bit() + '\n';
}

void printError(const QString& message)
{
    std::fputs(errorLine(message).constData(), stderr);
}

void printUnwritten(const QString& path, const QString& errorString)
{
    printError(Messages::tr("cannot write %1: %2").arg(shownOutput(path), errorString));
}
