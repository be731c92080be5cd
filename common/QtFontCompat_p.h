#ifndef QTFONTCOMPAT_P_H
#define QTFONTCOMPAT_P_H

#include <QtCore/QCoreApplication>
#include <QtCore/QStringList>
#include <QtGui/QFont>
#include <QtGui/QFontDatabase>
#include <QtGui/QFontMetricsF>
#include <QtGui/QTextCharFormat>
#if QT_VERSION < QT_VERSION_CHECK(5, 0, 0)
#include <QtGui/QApplication>
#endif

/*! Fonts and the formats that describe them, where the supported versions of Qt differ. */
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

/*! Names \a families in \a font, where the Qt version knows several, the first one where it does not. */
inline void setFamilies(QFont& font, const QStringList& families)
{
    setFamily(font, families.first());
#if QT_VERSION >= QT_VERSION_CHECK(5, 13, 0)
    if (families.size() > 1)
        font.setFamilies(families);
#endif
}

/*! Names the families of \a font in \a format, in whichever properties the Qt version draws with. */
inline void setFontFamilies(QTextCharFormat& format, const QFont& font)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 13, 0)
    if (font.families().size() > 1) {
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
        format.setProperty(QTextFormat::FontFamily, font.families().first());
#endif
        format.setProperty(QTextFormat::FontFamilies, font.families());
        return;
    }
#endif
    setFontFamily(format, family(font));
}

/*! Names the families of \a source, and no others, in \a format. */
inline void copyFontFamilies(QTextCharFormat& format, const QTextCharFormat& source)
{
    setFontFamily(format, fontFamily(source));
#if QT_VERSION >= QT_VERSION_CHECK(5, 13, 0)
    if (source.hasProperty(QTextFormat::FontFamilies))
        format.setProperty(QTextFormat::FontFamilies, source.property(QTextFormat::FontFamilies));
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

/*! The width of \a character, and of the space behind it. */
inline double advance(const QFontMetricsF& metrics, QChar character)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 11, 0)
    return metrics.horizontalAdvance(character);
#else
    return metrics.width(character);
#endif
}

} // namespace compat

#endif
