#include "TextExport.h"

#include <ORVNotes.h>
#include <ORVTextListLabels.h>

#include <QString>
#include <QTextBlock>
#include <QTextDocument>

namespace {

/*! A line as \a label and \a text make it. */
QString labelled(const QString& label, const QString& text)
{
    if (label.isEmpty() || text.isEmpty())
        return label + text;
    return label + QLatin1Char(' ') + text;
}

/*! The text of \a block, of which pictures are no part. */
QString textOf(const QTextBlock& block)
{
    QString text = block.text();
    text.remove(QChar(QChar::ObjectReplacementCharacter));
    return text.replace(QChar::LineSeparator, QLatin1Char('\n'));
}

} // namespace

QByteArray documentToPlainText(QTextDocument& document)
{
    ORVNotes::moveToEnd(&document, ORVNotes::ApplicationForm, ORVNotes::BracketedMarks);
    const ORVTextListLabels labels(&document);
    QString text;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (block != document.begin())
            text += QLatin1Char('\n');
        text += labelled(labels.label(block).text, textOf(block));
    }
    if (!text.isEmpty() && !text.endsWith(QLatin1Char('\n')))
        text += QLatin1Char('\n');
    return text.toUtf8();
}
