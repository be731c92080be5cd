#include "PictureComparison.h"

#include "Facts.h"
#include "Messages.h"

#include <ORVRtfProperties.h>
#include <TextDocSupport.h>

#include <QImage>
#include <QTextImageFormat>

namespace {

/*! A picture that states no size has that of its image. */
FactList pictureFacts(const QTextDocument* document, const QTextImageFormat& format)
{
    double width = format.width();
    double height = format.height();
    if (!(width > 0) || !(height > 0)) {
        const QSizeF size = TextDocSupport::image(document, format.name()).size();
        if (!(width > 0))
            width = height > 0 && size.height() > 0 ? size.width() * height / size.height() : size.width();
        if (!(height > 0))
            height = size.width() > 0 ? size.height() * width / size.width() : size.height();
    }
    FactList facts;
    facts.append({Facts::PictureWidth, FactValue().points(width * Facts::pointsPerPixel)});
    facts.append({Facts::PictureHeight, FactValue().points(height * Facts::pointsPerPixel)});
    const QString formula = format.stringProperty(ORVRtfProperty::MathML);
    if (!formula.isEmpty())
        facts.append({Facts::Formula, FactValue().quoted(formula)});
    return facts;
}

bool areSame(const QTextImageFormat& before, const QTextImageFormat& after, int property)
{
    const QByteArray data = before.property(property).toByteArray();
    return !data.isEmpty() && data == after.property(property).toByteArray();
}

QString shownSize(const QImage& image)
{
    return QStringLiteral("%1 × %2").arg(image.width()).arg(image.height());
}

} // namespace

QStringList PictureComparison::imageChanges(const QTextImageFormat& before, const QTextImageFormat& after)
{
    if (areSame(before, after, ORVRtfProperty::SourceImageData))
        return QStringList();
    const QImage first = TextDocSupport::image(m_before, before.name());
    const QImage second = TextDocSupport::image(m_after, after.name());
    if (first.isNull() && second.isNull())
        return QStringList();
    if (first.isNull())
        return {Messages::tr("image added")};
    if (second.isNull())
        return {Messages::tr("image removed")};
    if (first.size() != second.size())
        return {Facts::change(Messages::tr("pixels"), shownSize(first), shownSize(second))};
    const QImage::Format format = QImage::Format_ARGB32;
    if (first.convertToFormat(format) != second.convertToFormat(format))
        return {Messages::tr("image changed")};
    return QStringList();
}

QStringList PictureComparison::changes(const QTextImageFormat& before, const QTextImageFormat& after)
{
    QStringList changes = Facts::changes(pictureFacts(m_before, before), pictureFacts(m_after, after));
    const QPair<QString, QString> names(before.name(), after.name());
    auto known = m_known.find(names);
    if (known == m_known.end())
        known = m_known.insert(names, imageChanges(before, after));
    changes += *known;
    const QByteArray pdf = before.property(ORVRtfProperty::PdfData).toByteArray();
    if (pdf != after.property(ORVRtfProperty::PdfData).toByteArray())
        changes << Messages::tr("PDF of the picture changed");
    return changes;
}
