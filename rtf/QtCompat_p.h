#ifndef QTCOMPAT_P_H
#define QTCOMPAT_P_H

#include <QtCore/QByteArray>
#include <QtCore/QCoreApplication>
#include <QtCore/QCryptographicHash>
#include <QtCore/QProcess>
#include <QtCore/QStringList>
#include <QtCore/QUrl>
#include <QtCore/QVariant>
#include <QtGui/QColor>
#include <QtGui/QFont>
#include <QtGui/QFontDatabase>
#include <QtGui/QFontInfo>
#include <QtGui/QPen>
#include <QtGui/QTextCharFormat>
#include <QtGui/QTextDocument>
#include <QtGui/QTextOption>
#if QT_VERSION < QT_VERSION_CHECK(5, 0, 0)
#include <QtGui/QApplication>
#endif

#include <cmath>
#include <limits>

#ifdef Q_OS_UNIX
#include <csignal>
#include <unistd.h>
#endif

/*!
    Where the supported versions of Qt differ, and the few numeric rules that must not follow Qt.

    Everything version-dependent stands here or, for files and folders, in QtFileCompat_p.h.
*/
namespace compat {

/*!
    The font that \a format describes. The stored weight 0 stands for normal, as the application stores it;
    taken literally, newer Qt versions would draw a hairline font.
*/
inline QFont font(const QTextCharFormat& format)
{
    // On the format as it is: a changed copy loses the default font of its document.
    QFont font = format.font();
    if (format.hasProperty(QTextFormat::FontWeight) && format.intProperty(QTextFormat::FontWeight) == 0)
        font.setWeight(QFont::Normal);
    return font;
}

/*! Sets the weight of \a font to \a weight on the scale of the Qt version in use; 0 means normal. */
inline void setWeight(QFont& font, int weight)
{
    font.setWeight(weight == 0 ? QFont::Normal : QFont::Weight(weight));
}

/*! The family of \a font: the first one, where it names several. */
inline QString family(const QFont& font)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 13, 0)
    if (!font.families().isEmpty())
        return font.families().first();
#endif
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return QString();
#else
    return font.family();
#endif
}

/*! Makes \a family the one family of \a font. A comma in it is part of the name. */
inline void setFamily(QFont& font, const QString& family)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    font.setFamilies(QStringList(family));
#else
    font.setFamily(family);
#if QT_VERSION >= QT_VERSION_CHECK(5, 13, 0)
    font.setFamilies(QStringList());
#endif
#endif
}

/*! The family that \a format names, empty when it names none. */
inline QString fontFamily(const QTextCharFormat& format)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QString family = format.stringProperty(QTextFormat::FontFamily);
    if (!family.isEmpty())
        return family;
#endif
#if QT_VERSION >= QT_VERSION_CHECK(5, 13, 0)
    const QStringList families = format.property(QTextFormat::FontFamilies).toStringList();
    if (!families.isEmpty())
        return families.first();
#endif
    return QString();
}

inline bool hasFontFamily(const QTextCharFormat& format)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    if (format.hasProperty(QTextFormat::FontFamily))
        return true;
#endif
#if QT_VERSION >= QT_VERSION_CHECK(5, 13, 0)
    return !format.property(QTextFormat::FontFamilies).toStringList().isEmpty();
#else
    return false;
#endif
}

/*! Makes \a family the one family of \a format, whichever property the Qt version draws with. */
inline void setFontFamily(QTextCharFormat& format, const QString& family)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    format.setProperty(QTextFormat::FontFamilies, QStringList(family));
#else
    format.setProperty(QTextFormat::FontFamily, family);
#if QT_VERSION >= QT_VERSION_CHECK(5, 13, 0)
    format.clearProperty(QTextFormat::FontFamilies);
#endif
#endif
}

/*! Distance between the tab stops of \a option where a paragraph has none of its own, in pixels. */
inline double tabDistance(const QTextOption& option)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 10, 0)
    return option.tabStopDistance();
#else
    return option.tabStop();
#endif
}

inline void setTabDistance(QTextOption& option, double pixels)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 10, 0)
    option.setTabStopDistance(pixels);
#else
    option.setTabStop(pixels);
#endif
}

/*! The property by which neighbouring cells of a table share one border line; older Qt versions ignore it. */
#if QT_VERSION >= QT_VERSION_CHECK(5, 14, 0)
const int tableBorderCollapse = QTextFormat::TableBorderCollapse;
#else
const int tableBorderCollapse = 0x4105;
#endif

/*! The nearest integer, halves away from zero; out-of-range values are clamped and NaN gives 0. */
inline int roundHalfAway(double value)
{
    if (std::isnan(value))
        return 0;
    const double rounded = value < 0 ? std::ceil(value - 0.5) : std::floor(value + 0.5);
    if (rounded >= double(std::numeric_limits<int>::max()))
        return std::numeric_limits<int>::max();
    if (rounded <= double(std::numeric_limits<int>::min()))
        return std::numeric_limits<int>::min();
    return int(rounded);
}

/*! The nearest integer, halves going up; out-of-range values are clamped and NaN gives 0. */
inline int roundHalfUp(double value)
{
    if (std::isnan(value))
        return 0;
    const double rounded = std::floor(value + 0.5);
    if (rounded >= double(std::numeric_limits<int>::max()))
        return std::numeric_limits<int>::max();
    if (rounded <= double(std::numeric_limits<int>::min()))
        return std::numeric_limits<int>::min();
    return int(rounded);
}

/*!
    The integer that \a value has before its point; a value less than a millionth below an integer counts as
    that integer, so that binary fractions do not make a length shrink each time it is stored. Out-of-range
    values are clamped and NaN gives 0.
*/
inline int truncated(double value)
{
    const double tolerance = 1e-6;
    if (std::isnan(value))
        return 0;
    const double integer = value < 0 ? std::ceil(value - tolerance) : std::floor(value + tolerance);
    return int(
        qBound(double(std::numeric_limits<int>::min()), integer, double(std::numeric_limits<int>::max())));
}

/*! Whether \a pen draws the outline of outlined text: a thin black line, whatever default width it has. */
inline bool isDefaultOutline(const QPen& pen)
{
    return pen == QPen(Qt::SolidLine) || pen == QPen(QBrush(Qt::black), 0);
}

/*! The colour of the solid brush stored under \a propertyId, invalid when there is none. */
inline QColor brushColor(const QTextFormat& format, int propertyId)
{
    return qvariant_cast<QColor>(format.property(propertyId));
}

/*! A byte as the character of the same code. */
inline QChar fromByte(char byte)
{
    return QChar(ushort(uchar(byte)));
}

/*! The text that \a bytes are in Latin-1, zero bytes and all: Qt before version 6 ends a QByteArray there. */
inline QString fromLatin1(const QByteArray& bytes)
{
    return QString::fromLatin1(bytes.constData(), int(bytes.size()));
}

/*! The text that \a bytes are in UTF-8, zero bytes and all: Qt before version 6 ends a QByteArray there. */
inline QString fromUtf8(const QByteArray& bytes)
{
    return QString::fromUtf8(bytes.constData(), int(bytes.size()));
}

/*! The number of bytes of \a text. */
inline int length(QLatin1String text)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    return int(text.size());
#else
    return int(qstrlen(text.latin1()));
#endif
}

/*! Appends \a length \a bytes of Latin-1 to \a text. */
inline void appendLatin1(QString& text, const char* bytes, int length)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    text += QLatin1String(bytes, length);
#else
    text += QString::fromLatin1(bytes, length);
#endif
}

/*! The strongest hash that is always there. */
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
const QCryptographicHash::Algorithm strongHash = QCryptographicHash::Sha256;
#else
const QCryptographicHash::Algorithm strongHash = QCryptographicHash::Sha1;
#endif

/*! The URL that names in \a document are relative to; empty where documents have none. */
inline QUrl baseUrl(const QTextDocument* document)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 3, 0)
    return document->baseUrl();
#else
    Q_UNUSED(document);
    return QUrl();
#endif
}

/*! Gives \a document the base URL \a url, where documents have one. */
inline void setBaseUrl(QTextDocument* document, const QUrl& url)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 3, 0)
    document->setBaseUrl(url);
#else
    Q_UNUSED(document);
    Q_UNUSED(url);
#endif
}

/*! Whether fonts of the screen can be asked for; without a GUI application Qt's font classes crash. */
inline bool hasGui()
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    return QCoreApplication::instance() && QCoreApplication::instance()->inherits("QGuiApplication");
#else
    return QCoreApplication::instance() && QCoreApplication::instance()->inherits("QApplication")
        && QApplication::type() != QApplication::Tty;
#endif
}

/*! The installed font families. Only with hasGui(). */
inline QStringList fontFamilies()
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return QFontDatabase::families();
#else
    return QFontDatabase().families();
#endif
}

/*! The weights of the styles of \a family, empty when it is not installed. Only with hasGui(). */
inline QList<int> fontWeights(const QString& family)
{
    QList<int> weights;
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    for (const QString& style : QFontDatabase::styles(family))
        weights.append(QFontDatabase::weight(family, style));
#else
    QFontDatabase database;
    for (const QString& style : database.styles(family))
        weights.append(database.weight(family, style));
#endif
    return weights;
}

/*! The size of \a font in half-points; whole points are counted, also where it is not given in points. */
inline int halfPoints(const QFont& font)
{
    int points = font.pointSize();
    if (points <= 0 && hasGui())
        points = QFontInfo(font).pointSize();
    const double pointsPerPixel = 0.75;
    if (points <= 0)
        points = qMax(1, roundHalfAway(font.pixelSize() * pointsPerPixel));
    return 2 * qMin(points, std::numeric_limits<int>::max() / 2);
}

/*! \a value as text; bytes are taken for UTF-8 when they are valid as that, else for Latin-1. */
inline QString toString(const QVariant& value)
{
    if (value.userType() != QMetaType::QByteArray)
        return value.toString();
    const QByteArray bytes = value.toByteArray();
    const QString text = fromUtf8(bytes);
    return text.toUtf8() == bytes ? text : fromLatin1(bytes);
}

/*! The file that is always empty and takes everything. */
inline QString nullDevice()
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 2, 0)
    return QProcess::nullDevice();
#elif defined(Q_OS_WIN)
    return QLatin1String("NUL");
#else
    return QLatin1String("/dev/null");
#endif
}

/*! The system's number of \a process, which is running. */
inline qint64 processId(const QProcess& process)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 3, 0)
    return process.processId();
#elif defined(Q_OS_WIN)
    return process.pid()->dwProcessId;
#else
    return process.pid();
#endif
}

/*! A process that leads a process group of its own, where the system has such, see killGroup(). */
class GroupProcess : public QProcess {
#ifdef Q_OS_UNIX
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
public:
    GroupProcess()
    {
        setChildProcessModifier([] { ::setpgid(0, 0); });
    }
#else
protected:
    void setupChildProcess() override
    {
        ::setpgid(0, 0);
    }
#endif
#endif
};

/*! Kills what is left of the group that the process with the id \a leader leads or led: all that it started.
 */
inline void killGroup(qint64 leader)
{
#ifdef Q_OS_UNIX
    if (leader > 1)
        ::kill(-pid_t(leader), SIGKILL);
#else
    Q_UNUSED(leader);
#endif
}

} // namespace compat

#endif
