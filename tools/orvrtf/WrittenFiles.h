#ifndef ORVRTF_WRITTENFILES_H
#define ORVRTF_WRITTENFILES_H

#include <QFile>
#include <QFileInfo>
#include <QStringList>

/*! The files that have been written. Unless they are to be kept, they are removed in the end. */
class WrittenFiles {
public:
    WrittenFiles() = default;
    ~WrittenFiles()
    {
        for (const QString& path : m_paths)
            QFile::remove(path);
    }

    /*! Devices and pipes stay. */
    void add(const QString& path)
    {
        const QFileInfo info(path);
        if (info.isFile())
            m_paths.append(info.canonicalFilePath());
    }

    void keep() { m_paths.clear(); }

private:
    Q_DISABLE_COPY(WrittenFiles)
    QStringList m_paths;
};

#endif
