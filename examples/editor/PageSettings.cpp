#include "PageSettings.h"

#include <QTextDocument>
#include <QVariant>

namespace {

/*! A header or footer that \a document does not have yet would begin in the font of the text. */
ORVTextPage marginText(const QTextDocument& document, const char* property)
{
    ORVTextPage text = qvariant_cast<ORVTextPage>(document.property(property));
    if (text.text.isEmpty())
        text.font = document.defaultFont();
    return text;
}

} // namespace

PageSettings PageSettings::of(const QTextDocument& document)
{
    PageSettings settings;
    settings.page = ORVPageGeometry::of(&document);
    settings.header = marginText(document, "header");
    settings.footer = marginText(document, "footer");
    settings.notOnFirstPage = document.property("notOnFirstPage").toBool();
    settings.countFirstPage = document.property("countFirstPage").toBool();
    return settings;
}

void PageSettings::setOn(QTextDocument* document) const
{
    page.setOn(document);
    document->setProperty("header", QVariant::fromValue(header));
    document->setProperty("footer", QVariant::fromValue(footer));
    document->setProperty("notOnFirstPage", notOnFirstPage);
    document->setProperty("countFirstPage", countFirstPage);
}
