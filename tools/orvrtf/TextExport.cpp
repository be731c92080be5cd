#include "TextExport.h"

#include <QString>
#include <QTextDocument>

namespace {

/*! What a QTextDocument puts at the start and at the end of a frame or table cell in its raw text. */
const ushort frameStart = 0xfdd0;
const ushort frameEnd = 0xfdd1;

bool breaksLine(QChar c)
{
    return c == QChar::ParagraphSeparator || c == QChar::LineSeparator || c.unicode() == frameStart
        || c.unicode() == frameEnd;
}

} // namespace

QByteArray documentToPlainText(const QTextDocument& document)
{
    QString text = document.toRawText();
    text.remove(QChar(QChar::ObjectReplacementCharacter));
    for (QChar& c : text) {
        if (breaksLine(c))
            c = QLatin1Char('\n');
    }
    if (!text.isEmpty() && !text.endsWith(QLatin1Char('\n')))
        text += QLatin1Char('\n');
    return text.toUtf8();
}
