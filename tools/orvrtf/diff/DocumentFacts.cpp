#include "DocumentFacts.h"

#include "DocumentInfo.h"
#include "Messages.h"

#include <ORVPageGeometry.h>
#include <ORVTextPage.h>

#include <QTextDocument>
#include <QTextOption>

namespace {

/*! How the header or footer under \a name looks; nothing where there is none. */
void addLook(const QTextDocument& document, const char* name, int property, FactList& facts)
{
    const ORVTextPage page = qvariant_cast<ORVTextPage>(document.property(name));
    if (page.text.isEmpty())
        return;
    FactValue value = FactValue()
                          .alignment(page.option.alignment())
                          .text(page.font.family())
                          .points(page.font.pointSizeF());
    if (page.font.bold())
        value.word(QT_TRANSLATE_NOOP("orvrtf", "bold"));
    if (page.font.italic())
        value.word(QT_TRANSLATE_NOOP("orvrtf", "italic"));
    facts.append({property, value});
}

bool showsPageNumber(const QTextDocument& document, const char* name)
{
    return qvariant_cast<ORVTextPage>(document.property(name)).text.contains(QLatin1String("<$p>"));
}

/*! The text that \a info has under \a key. */
QString textOf(const DocumentInfo& info, const QString& key)
{
    for (const DocumentInfo::Description& description : info.descriptions) {
        if (description.key == key)
            return Messages::tr("\"%1\"").arg(description.text);
    }
    return QString();
}

} // namespace

FactList DocumentFacts::ofPage(const QTextDocument& document)
{
    const ORVPageGeometry page = ORVPageGeometry::of(&document);
    FactList facts;
    facts.append({Facts::PageSize,
                  FactValue()
                      .points(page.paperSize.width())
                      .text(QStringLiteral("×"))
                      .points(page.paperSize.height())});
    facts.append({Facts::LeftMargin, FactValue().points(page.leftMargin)});
    facts.append({Facts::RightMargin, FactValue().points(page.rightMargin)});
    facts.append({Facts::TopMargin, FactValue().points(page.topMargin)});
    facts.append({Facts::BottomMargin, FactValue().points(page.bottomMargin)});
    facts.append(
        {Facts::TabDistance,
         FactValue().points(document.defaultTextOption().tabStopDistance() * Facts::pointsPerPixel)});
    if (document.property("notOnFirstPage").toBool())
        facts.append({Facts::NotOnFirstPage, FactValue()});
    if (showsPageNumber(document, "header") || showsPageNumber(document, "footer"))
        facts.append({Facts::CountFirstPage,
                      FactValue().number(document.property("countFirstPage").toBool() ? 1 : 0)});
    addLook(document, "header", Facts::HeaderLook, facts);
    addLook(document, "footer", Facts::FooterLook, facts);
    return facts;
}

QStringList DocumentFacts::textChanges(const QTextDocument& before, const QTextDocument& after)
{
    const DocumentInfo first(before);
    const DocumentInfo second(after);
    QStringList changes;
    for (const DocumentInfo::Description& description : first.descriptions) {
        const QString old = textOf(first, description.key);
        const QString now = textOf(second, description.key);
        if (old != now)
            changes << Facts::change(description.name, old, now);
    }
    for (const DocumentInfo::Description& description : second.descriptions) {
        if (textOf(first, description.key).isEmpty())
            changes << Facts::change(description.name, QString(), textOf(second, description.key));
    }
    return changes;
}
