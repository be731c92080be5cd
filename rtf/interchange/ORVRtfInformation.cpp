#include "ORVRtfInformation_p.h"

#include "ORVRtfLimits_p.h"

#include <QtCore/QVariant>
#include <QtGui/QTextDocument>

namespace {

// The title is none: Qt has a place for it.
const char* const textProperties[] = {"",        "author",  "lastAuthor", "subject", "keywords",
                                      "comment", "manager", "company",    "category"};
const char* const dateProperties[] = {"created", "lastModified", "printed"};

} // namespace

void ORVRtfInformation::append(Text text, const QString& part)
{
    m_texts[text] += part.left(ORVRtfLimits::informationText - int(m_texts[text].size()));
}

void ORVRtfInformation::setOn(QTextDocument* document) const
{
    document->setMetaInformation(QTextDocument::DocumentTitle, m_texts[Title].trimmed());
    for (int i = Title + 1; i < TextCount; ++i) {
        const QString text = m_texts[i].trimmed();
        document->setProperty(textProperties[i], text.isEmpty() ? QVariant() : QVariant(text));
    }
    for (int i = 0; i < DateCount; ++i)
        document->setProperty(dateProperties[i], m_dates[i].isValid() ? QVariant(m_dates[i]) : QVariant());
}
