#ifndef RTFTESTHELPERS_H
#define RTFTESTHELPERS_H

#include "ORVTextRtfReader.h"
#include "QtFontCompat_p.h"

#include <QtCore/QBuffer>
#include <QtCore/QMap>
#include <QtCore/QSharedPointer>
#include <QtCore/QStringList>
#include <QtCore/QUrl>
#include <QtGui/QBrush>
#include <QtGui/QFont>
#include <QtGui/QImage>
#include <QtGui/QPen>
#include <QtGui/QTextBlock>
#include <QtGui/QTextDocument>
#include <QtGui/QTextFragment>

/*! What the tests of reading share: one call that reads, and comparable forms of what was read. */
namespace rtftest {

typedef QMap<int, QVariant> Properties;

/*! Key of the font family in Properties, whichever property the Qt version keeps it in. */
const int Family = 0x2000;
/*! Family and size of the default font of the documents that read() makes; no such font is installed. */
const char* const DefaultFamily = "Quibble Sans";
const double DefaultPointSize = 12.0;
/*! Set in the result of a lookup that found nothing, so that no comparison succeeds by accident. */
const int NotFound = QTextFormat::UserProperty + 99999;

inline QTextCharFormat notFoundFormat()
{
    QTextCharFormat format;
    format.setProperty(NotFound, true);
    return format;
}

/*! The text of a document, paragraphs separated by line feeds, and every other character as it is stored. */
inline QString textOf(const QTextDocument& document)
{
    QStringList paragraphs;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        paragraphs << block.text();
    return paragraphs.join(QLatin1Char('\n'));
}

inline QList<QTextFragment> fragmentsOf(const QTextBlock& block)
{
    QList<QTextFragment> fragments;
    for (QTextBlock::iterator it = block.begin(); !it.atEnd(); ++it)
        fragments << it.fragment();
    return fragments;
}

inline QList<QTextFragment> fragmentsOf(const QTextDocument& document)
{
    QList<QTextFragment> fragments;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        fragments << fragmentsOf(block);
    return fragments;
}

/*! The format of the first fragment that contains \a text. */
inline QTextCharFormat formatOf(const QTextDocument& document, const QString& text)
{
    const QList<QTextFragment> fragments = fragmentsOf(document);
    for (const QTextFragment& fragment : fragments) {
        if (fragment.text().contains(text))
            return fragment.charFormat();
    }
    return notFoundFormat();
}

/*! The formats of the pictures of a document, in their order. */
inline QList<QTextImageFormat> imagesOf(const QTextDocument& document)
{
    QList<QTextImageFormat> images;
    const QList<QTextFragment> fragments = fragmentsOf(document);
    for (const QTextFragment& fragment : fragments) {
        if (!fragment.charFormat().isImageFormat())
            continue;
        for (int i = 0; i < fragment.length(); ++i)
            images << fragment.charFormat().toImageFormat();
    }
    return images;
}

/*! The outcome of reading one piece of RTF. */
struct Reading {
    bool ok = false;
    int status = -1;
    QString message;
    QSharedPointer<QTextDocument> document;

    QString text() const { return textOf(*document); }
    int blockCount() const { return document->blockCount(); }
    QTextBlock block(int number) const { return document->findBlockByNumber(number); }
    QTextBlockFormat blockFormat(int number) const { return block(number).blockFormat(); }
    QTextCharFormat format(const QString& text) const { return formatOf(*document, text); }
    QList<QTextImageFormat> images() const { return imagesOf(*document); }
    /*! The picture of \a format. */
    QImage picture(const QTextImageFormat& format) const
    {
        return document->resource(QTextDocument::ImageResource, QUrl(format.name())).value<QImage>();
    }
};

/*! An empty document with the default font of the tests. */
inline QSharedPointer<QTextDocument> newDocument()
{
    QSharedPointer<QTextDocument> document(new QTextDocument);
    QFont font;
    font.setFamily(QLatin1String(DefaultFamily));
    font.setPointSizeF(DefaultPointSize);
    document->setDefaultFont(font);
    return document;
}

/*! Reads \a rtf as it is into \a document. */
inline Reading readInto(const QSharedPointer<QTextDocument>& document, const QByteArray& rtf,
                        bool removeInvalidChars = true)
{
    QBuffer buffer;
    buffer.setData(rtf);
    buffer.open(QIODevice::ReadOnly);
    ORVTextRtfReader reader(&buffer);
    Reading reading;
    reading.document = document;
    reading.ok = reader.read(document.data(), removeInvalidChars);
    reading.status = reader.error();
    reading.message = reader.errorString();
    return reading;
}

/*! Reads \a rtf as it is. */
inline Reading read(const QByteArray& rtf, bool removeInvalidChars = true)
{
    return readInto(newDocument(), rtf, removeInvalidChars);
}

/*! Reads \a body as the content of an RTF document. */
inline Reading readBody(const QByteArray& body)
{
    return read("{\\rtf1\\ansi " + body + "}");
}

/*! The properties of \a format, the font family under the key Family. */
inline Properties propertiesOf(const QTextFormat& format)
{
    Properties properties = format.properties();
    properties.remove(Family);
    properties.remove(QTextFormat::FontFamilies);
    if (format.isCharFormat() && compat::hasFontFamily(format.toCharFormat()))
        properties.insert(Family, compat::fontFamily(format.toCharFormat()));
    return properties;
}

inline QString describe(const QVariant& value)
{
    switch (value.userType()) {
    case QMetaType::Bool: return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    case QMetaType::Int: return QStringLiteral("int %1").arg(value.toInt());
    case QMetaType::Double: return QStringLiteral("double %1").arg(value.toDouble(), 0, 'g', 12);
    case QMetaType::QString: return QStringLiteral("string '%1'").arg(value.toString());
    case QMetaType::QByteArray:
        return QStringLiteral("bytes %1").arg(QString::fromLatin1(value.toByteArray().toHex()));
    case QMetaType::QColor:
        return QStringLiteral("colour %1").arg(value.value<QColor>().name(QColor::HexArgb));
    case QMetaType::QBrush: {
        const QBrush brush = value.value<QBrush>();
        return QStringLiteral("brush %1 %2").arg(int(brush.style())).arg(brush.color().name(QColor::HexArgb));
    }
    case QMetaType::QPen: {
        const QPen pen = value.value<QPen>();
        return QStringLiteral("pen %1 %2").arg(int(pen.style())).arg(pen.color().name(QColor::HexArgb));
    }
    default: return QString::fromLatin1(value.typeName());
    }
}

/*! One line a property, in the order of their ids: what two property sets are compared by. */
inline QString dump(const Properties& properties)
{
    QStringList lines;
    for (Properties::const_iterator it = properties.begin(); it != properties.end(); ++it)
        lines << QStringLiteral("0x%1: %2").arg(it.key(), 0, 16).arg(describe(it.value()));
    return lines.join(QLatin1String("; "));
}

inline QString dump(const QTextFormat& format)
{
    return dump(propertiesOf(format));
}

/*! A font table with font 1 "Quibble Serif" and font 2 "Quibble Mono", the latter with a fixed pitch. */
inline QByteArray fontTable()
{
    return "{\\fonttbl{\\f1\\froman Quibble Serif;}{\\f2\\fmodern\\fprq1 Quibble Mono;}}";
}

/*! A colour table: 1 red, 2 green, 3 blue, 4 white. */
inline QByteArray colorTable()
{
    return "{\\colortbl;\\red255\\green0\\blue0;\\red0\\green255\\blue0;\\red0\\green0\\blue255;"
           "\\red255\\green255\\blue255;}";
}

} // namespace rtftest

#endif
