#include "ORVTextFormat.h"

#include "QtFontCompat_p.h"

#include <QtCore/QVariant>
#include <QtGui/QFontInfo>
#include <QtGui/QTextDocument>
#include <QtGui/QTextFormat>

namespace {

const char defaultFormatProperty[] = "orvDefaultCharFormat";

/*! The size of \a font in points; 0 when it is in pixels and there is no screen to convert it. */
qreal pointSize(const QFont& font)
{
    if (font.pointSizeF() > 0 || !compat::hasGui())
        return font.pointSizeF();
    return QFontInfo(font).pointSizeF();
}

QTextCharFormat formatOfFont(const QFont& font)
{
    QTextCharFormat format;
    if (!font.family().isEmpty())
        compat::setFontFamily(format, font.family());
    const qreal size = pointSize(font);
    if (size > 0)
        format.setFontPointSize(size);
    return format;
}

} // namespace

QTextCharFormat ORVTextFormat::defaultCharFormat(const QTextDocument* document)
{
    if (!document)
        return QTextCharFormat();
    const QVariant stored = document->property(defaultFormatProperty);
    if (stored.isValid())
        return qvariant_cast<QTextFormat>(stored).toCharFormat();
    return formatOfFont(document->defaultFont());
}

void ORVTextFormat::setDefaultCharFormat(QTextDocument* document, const QTextCharFormat& format)
{
    if (!document)
        return;
    document->setProperty(defaultFormatProperty, QVariant(format));
    document->setDefaultFont(compat::font(format));
}

QString ORVTextFormat::imageName(const QTextImageFormat& format)
{
    return format.name();
}
