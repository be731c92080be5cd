#ifndef CONVERSIONHELPERS_H
#define CONVERSIONHELPERS_H

#include "literals.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QStringList>
#include <QTemporaryDir>

/*!
    What the tests of converting other formats share: files, programs that stand in for real ones, real files.
*/
namespace conversiontest {

/*! A word of every paragraph of the real documents; one of them is beyond ASCII. */
const char* const RealWords[] = {"Heading", u8"Gr\u00fc\u00dfe", "strong", "first", "second"};

inline void writeFile(const QString& path, const QByteArray& data)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(data) != data.size())
        qFatal("cannot write %s", qPrintable(path));
}

inline QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file ") + path.toUtf8();
}

/*! Makes the shell script \a path of \a commands. */
inline QString writeScript(const QString& path, const QByteArray& commands)
{
    writeFile(path, "#!/bin/sh\n" + commands + '\n');
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return path;
}

/*! Sets an environment variable while this object lives. */
class Environment {
public:
    Environment(const char* name, const QByteArray& value)
        : m_name(name), m_wasSet(qEnvironmentVariableIsSet(name)), m_previous(qgetenv(name))
    {
        qputenv(name, value);
    }
    ~Environment()
    {
        if (m_wasSet)
            qputenv(m_name, m_previous);
        else
            qunsetenv(m_name);
    }
    Q_DISABLE_COPY(Environment)

private:
    const char* m_name;
    bool m_wasSet;
    QByteArray m_previous;
};

/*! Makes a folder the current one while this object lives. */
class WorkingFolder {
public:
    explicit WorkingFolder(const QString& path) : m_previous(QDir::currentPath())
    {
        if (!QDir::setCurrent(path))
            qFatal("cannot enter %s", qPrintable(path));
    }
    ~WorkingFolder() { QDir::setCurrent(m_previous); }
    Q_DISABLE_COPY(WorkingFolder)

private:
    QString m_previous;
};

/*! A folder of a test, and one for temporary files that must be empty in the end. */
class Folders {
public:
    Folders() : m_environment("TMPDIR", prepare()) { }

    QString path(const QString& name) const { return m_dir.filePath(name); }
    QString temporary() const { return path("temporary"_s); }
    /*! Names of what lies in the folder for temporary files. */
    QStringList leftovers() const
    {
        return QDir(temporary())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

private:
    QByteArray prepare()
    {
        if (!QDir(m_dir.path()).mkdir("temporary"_s))
            qFatal("no temporary folder");
        return QFile::encodeName(temporary());
    }

    QTemporaryDir m_dir;
    Environment m_environment;
};

/*! Runs \a name, which is in PATH; what it prints is shown when it fails. */
inline void runProgram(const QString& name, const QStringList& arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QStandardPaths::findExecutable(name), arguments);
    if (!process.waitForStarted() || !process.waitForFinished(120000) || process.exitCode() != 0)
        qFatal("%s fails: %s", qPrintable(name), process.readAll().constData());
}

/*! What LibreOffice makes of \a source in the format that it calls \a filter, in \a folder. */
inline void convertWithLibreOffice(const QString& source, const QString& filter, const QString& folder)
{
    const QTemporaryDir profile;
    runProgram("soffice"_s,
               {"--headless"_s, "-env:UserInstallation=file://"_s + profile.path(), "--convert-to"_s, filter,
                "--outdir"_s, folder, source});
}

/*! Documents with RealWords that real programs made: .odt and .docx pandoc, .doc LibreOffice. */
class RealDocuments {
public:
    RealDocuments()
    {
        const QString html = path("html"_s);
        writeFile(html,
                  "<html><head><meta charset=\"utf-8\"></head><body><h1>Heading</h1><p>Gr\xc3\xbc\xc3\x9f"
                  "e <b>strong</b></p><table><tr><td>first</td><td>second</td></tr></table></body></html>");
        for (const QString& suffix : {"odt"_s, "docx"_s})
            runProgram("pandoc"_s, {"--output="_s + path(suffix), "--metadata"_s, "title=Title"_s, html});
        convertWithLibreOffice(path("odt"_s), "doc:MS Word 97"_s, m_dir.path());
    }

    /*! The path of the document with \a suffix: html, odt, docx or doc. */
    QString path(const QString& suffix) const { return m_dir.filePath("real."_s + suffix); }

private:
    QTemporaryDir m_dir;
};

/*! The first of RealWords that \a text lacks; empty when it has all. */
inline QString missingWord(const QString& text)
{
    for (const char* const word : RealWords) {
        if (!text.contains(QString::fromUtf8(word)))
            return QString::fromUtf8(word);
    }
    return QString();
}

} // namespace conversiontest

#endif
