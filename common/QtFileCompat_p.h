#ifndef QTFILECOMPAT_P_H
#define QTFILECOMPAT_P_H

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QString>

#if QT_VERSION >= QT_VERSION_CHECK(5, 1, 0)
#include <QtCore/QSaveFile>
#include <QtCore/QStandardPaths>
#include <QtCore/QTemporaryDir>
#else
#include <QtCore/QDir>
#include <QtCore/QStringList>
#include <QtCore/QTemporaryFile>
#include <QtCore/QUuid>

#include <cstdio>
#endif

/*! Files and folders where the supported versions of Qt differ. */
namespace compat {

#if QT_VERSION >= QT_VERSION_CHECK(5, 1, 0)

typedef QFileDevice FileDevice;
typedef QSaveFile SaveFile;
typedef QTemporaryDir TemporaryFolder;

/*! The path of the program \a name that PATH leads to, empty when there is none. */
inline QString findExecutable(const QString& name)
{
    return QStandardPaths::findExecutable(name);
}

#else

typedef QFile FileDevice;

/*! A file that appears at its place when it is complete, and replaces the one that is there. */
class SaveFile : public QTemporaryFile {
public:
    explicit SaveFile(const QString& target)
        : QTemporaryFile(target + QLatin1String(".XXXXXX")), m_target(target)
    {
    }
    bool open(OpenMode) override
    {
        if (!QTemporaryFile::open(QIODevice::ReadWrite))
            return false;
        return !QFile::exists(m_target) || setPermissions(QFile::permissions(m_target));
    }
    bool commit()
    {
        close();
        setAutoRemove(false);
        if (error() == NoError
            && std::rename(encodeName(fileName()).constData(), encodeName(m_target).constData()) == 0)
            return true;
        remove();
        return false;
    }

private:
    QString m_target;
};

/*! A folder that nobody else can look into, removed with this object. */
class TemporaryFolder {
public:
    TemporaryFolder()
        : m_path(QDir::temp().filePath(QUuid::createUuid().toString().mid(1, nameLength))),
          m_isValid(QDir().mkdir(m_path)
                    && QFile::setPermissions(m_path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner))
    {
    }
    ~TemporaryFolder() { remove(); }
    Q_DISABLE_COPY(TemporaryFolder)

    bool isValid() const { return m_isValid; }
    QString path() const { return m_path; }
    bool remove() { return !m_isValid || removeTree(m_path); }

private:
    /*! Of a UUID without the braces around it. */
    static const int nameLength = 36;

    static bool removeTree(const QString& path)
    {
        QStringList folders(path);
        // Folders come after those that they are in.
        for (int i = 0; i < folders.size(); ++i) {
            const QDir dir(folders.at(i));
            const QFileInfoList entries =
                dir.entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
            for (const QFileInfo& entry : entries) {
                if (entry.isDir() && !entry.isSymLink())
                    folders.append(entry.absoluteFilePath());
                else
                    QFile::remove(entry.absoluteFilePath());
            }
        }
        while (folders.size() > 1)
            QDir().rmdir(folders.takeLast());
        return QDir().rmdir(path) || !QFile::exists(path);
    }

    QString m_path;
    bool m_isValid;
};

/*! The path of the program \a name that PATH leads to, empty when there is none. */
inline QString findExecutable(const QString& name)
{
#ifdef Q_OS_WIN
    const QLatin1Char separator(';');
    const QString fileName = name + QLatin1String(".exe");
#else
    const QLatin1Char separator(':');
    const QString fileName = name;
#endif
    const QStringList folders = QFile::decodeName(qgetenv("PATH")).split(separator);
    for (const QString& folder : folders) {
        const QFileInfo info(QDir(folder), fileName);
        if (!folder.isEmpty() && info.isFile() && info.isExecutable())
            return info.absoluteFilePath();
    }
    return QString();
}

#endif

} // namespace compat

#endif
