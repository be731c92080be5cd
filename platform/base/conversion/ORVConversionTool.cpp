#include "ORVConversionTool_p.h"

#include "QtStringCompat_p.h"

#include <QtCore/QByteArray>
#include <QtCore/QCryptographicHash>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QUrl>

namespace {

const char* const outputFolder = "output";
const char* const profileFolder = "profile";

const int formatCount = 4;
const char* const formatSuffixes[formatCount] = {"txt", "html", "odt", "rtf"};

// Linked pictures are blocked: loading them would tell a server who opens the document. Macros are blocked as
// well.
const char* const libreOfficeSettings =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<oor:items xmlns:oor=\"http://openoffice.org/2001/registry\">\n"
    "<item oor:path=\"/org.openoffice.Office.Common/Security/Scripting\">"
    "<prop oor:name=\"BlockUntrustedRefererLinks\" oor:op=\"fuse\"><value>true</value></prop></item>\n"
    "<item oor:path=\"/org.openoffice.Office.Common/Security/Scripting\">"
    "<prop oor:name=\"DisableMacrosExecution\" oor:op=\"fuse\"><value>true</value></prop></item>\n"
    "</oor:items>\n";

int formatIndex(ORVFormat::Format format)
{
    return int(format) - int(ORVFormat::PlainText);
}

QString profileUrl(const QString& folder)
{
    const QString path = QDir(folder).absoluteFilePath(QLatin1String(profileFolder));
    return compat::fromLatin1(QUrl::fromLocalFile(path).toEncoded());
}

QStringList libreOfficeArguments(const QString& folder, const QString& suffix, const char* filter)
{
    QStringList arguments;
    arguments << QLatin1String("--headless") << QLatin1String("--norestore")
              << QLatin1String("-env:UserInstallation=") + profileUrl(folder) << QLatin1String("--convert-to")
              << QLatin1String(filter) << QLatin1String("--outdir") << QLatin1String(outputFolder);
    // Otherwise HTML becomes a document for the web, which has fewer formats to be saved in.
    if (suffix.startsWith(QLatin1String("htm")))
        arguments << QLatin1String("--infilter=HTML (StarWriter)");
    return arguments << ORVConversionTool::sourceName(suffix);
}

QStringList abiWordArguments(const QString& suffix, ORVFormat::Format format, const char* filter)
{
    return QStringList() << QLatin1String("--to=") + QLatin1String(filter)
                         << QLatin1String("--to-name=") + ORVConversionTool::outputName(format)
                         << ORVConversionTool::sourceName(suffix);
}

QStringList pandocArguments(const QString& suffix, ORVFormat::Format format, const char* filter)
{
    const QString reader = suffix == QLatin1String("htm") ? QLatin1String("html") : suffix;
    // Without --standalone, RTF has no header; in the sandbox nothing but the source file is read.
    return QStringList() << QLatin1String("--sandbox") << QLatin1String("--standalone")
                         << QLatin1String("--from=") + reader
                         << QLatin1String("--to=") + QLatin1String(filter)
                         << QLatin1String("--output=") + ORVConversionTool::outputName(format)
                         << ORVConversionTool::sourceName(suffix);
}

bool writeFile(const QString& path, const QByteArray& data)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(data) == data.size() && file.flush();
}

/*!
    The socket by which LibreOffice finds another instance with the same profile. Its name holds a hash of the
    profile's URL in UTF-16, its bytes as hexadecimal numbers without leading zeros.
*/
QString libreOfficeSocketName(const QString& folder)
{
    const QString url = profileUrl(folder);
    const QByteArray bytes(reinterpret_cast<const char*>(url.utf16()), int(url.size() * sizeof(ushort)));
    QString hash;
    for (const char byte : QCryptographicHash::hash(bytes, QCryptographicHash::Md5))
        hash += QString::number(uchar(byte), 16);
    return QLatin1String("OSL_PIPE_*_SingleOfficeIPC_") + hash;
}

} // namespace

struct ORVConversionTool::Description {
    ORVImportExport::Engine engine;
    const char* name;
    /*! Separated by blanks, like the suffixes that it reads. */
    const char* programs;
    const char* suffixes;
    /*! What the tool calls each format to write, null where it does not write it well. */
    const char* filters[formatCount];
};

const ORVConversionTool::Description ORVConversionTool::descriptions[] = {
    {ORVImportExport::LibreOfficeEngine,
     "LibreOffice",
     "soffice libreoffice",
     "doc docx odt rtf html htm",
     {"txt:Text (encoded):UTF8", "html:HTML (StarWriter):EmbedImages", "odt:writer8",
      "rtf:Rich Text Format"}},
    {ORVImportExport::AbiWordEngine,
     "AbiWord",
     "abiword",
     // Not HTML: it would fetch the pictures.
     "doc docx odt rtf",
     {"txt", nullptr, nullptr, "rtf"}},
    {ORVImportExport::PandocEngine,
     "pandoc",
     "pandoc",
     "docx odt rtf html htm",
     {"plain", nullptr, nullptr, "rtf"}},
};

QList<ORVConversionTool> ORVConversionTool::all()
{
    QList<ORVConversionTool> tools;
    for (const Description& description : descriptions)
        tools.append(ORVConversionTool(&description));
    return tools;
}

ORVImportExport::Engine ORVConversionTool::engine() const
{
    return m_description->engine;
}

QString ORVConversionTool::name() const
{
    return QLatin1String(m_description->name);
}

QStringList ORVConversionTool::programs() const
{
    return QString::fromLatin1(m_description->programs).split(QLatin1Char(' '));
}

bool ORVConversionTool::converts(const QString& suffix, ORVFormat::Format format) const
{
    const int index = formatIndex(format);
    return index >= 0 && index < formatCount && m_description->filters[index]
        && QString::fromLatin1(m_description->suffixes).split(QLatin1Char(' ')).contains(suffix);
}

bool ORVConversionTool::prepare(const QString& folder) const
{
    const QDir dir(folder);
    if (!dir.mkdir(QLatin1String(outputFolder)))
        return false;
    if (m_description->engine != ORVImportExport::LibreOfficeEngine)
        return true;
    const QString settings = QLatin1String(profileFolder) + QLatin1String("/user");
    return dir.mkpath(settings)
        && writeFile(dir.filePath(settings + QLatin1String("/registrymodifications.xcu")),
                     libreOfficeSettings);
}

QStringList ORVConversionTool::arguments(const QString& folder, const QString& suffix,
                                         ORVFormat::Format format) const
{
    const char* const filter = m_description->filters[formatIndex(format)];
    if (m_description->engine == ORVImportExport::LibreOfficeEngine)
        return libreOfficeArguments(folder, suffix, filter);
    if (m_description->engine == ORVImportExport::AbiWordEngine)
        return abiWordArguments(suffix, format, filter);
    return pandocArguments(suffix, format, filter);
}

void ORVConversionTool::removeLeftovers(const QString& folder) const
{
    if (m_description->engine != ORVImportExport::LibreOfficeEngine)
        return;
    // LibreOffice ignores TMPDIR for its sockets.
    for (const char* const path : {"/tmp", "/var/tmp"}) {
        QDir dir(QString::fromLatin1(path));
        const QStringList filter(libreOfficeSocketName(folder));
        const QStringList names = dir.entryList(filter, QDir::System | QDir::Hidden);
        for (const QString& name : names)
            dir.remove(name);
    }
}

QString ORVConversionTool::sourceName(const QString& suffix)
{
    return QLatin1String("source.") + suffix;
}

QString ORVConversionTool::outputName(ORVFormat::Format format)
{
    return QLatin1String(outputFolder) + QLatin1String("/source.")
        + QLatin1String(formatSuffixes[formatIndex(format)]);
}
