#include "HtmlReport.h"

#include "Messages.h"
#include "ReportTexts.h"

namespace {

const char* const styleSheet =
    "body { font-family: sans-serif; max-width: 50em; margin: 1em auto; padding: 0 1em }\n"
    "h2 { font-size: 1em; margin: 1.5em 0 0.25em }\n"
    "p { margin: 0.25em 0; white-space: pre-wrap }\n"
    "ul { margin: 0.25em 0 }\n"
    "del { background: #fdd }\n"
    "ins { background: #dfd }\n"
    "dt { float: left; width: 5em }\n";

QString element(const char* tag, const QString& content)
{
    return QStringLiteral("<%1>%2</%1>").arg(QLatin1String(tag), content);
}

QString htmlText(const QString& text)
{
    return ReportTexts::visible(text).toHtmlEscaped();
}

/*! Writes a section for each place, with its text and a list of the changes of formats. */
class HtmlReportWriter {
public:
    QString take()
    {
        endList();
        return m_html;
    }

    void addHeading(const QString& heading)
    {
        if (heading == m_heading)
            return;
        m_heading = heading;
        addLine(element("h2", htmlText(heading)));
    }

    void add(const Difference& difference);
    void add(const FrequentChange& change)
    {
        addItem(htmlText(change.change) + QLatin1String(": ") + htmlText(ReportTexts::places(change)));
    }

private:
    void addLine(const QString& html)
    {
        endList();
        m_html += html + QLatin1Char('\n');
    }
    void addItem(const QString& html)
    {
        if (!m_isInList)
            m_html += QLatin1String("<ul>\n");
        m_isInList = true;
        m_html += element("li", html) + QLatin1Char('\n');
    }
    void endList()
    {
        if (m_isInList)
            m_html += QLatin1String("</ul>\n");
        m_isInList = false;
    }
    static QString changedText(const QVector<TextPiece>& pieces);

    QString m_html;
    QString m_heading;
    bool m_isInList = false;
};

QString markedHtml(const TextPiece& piece, const QString& text)
{
    return element(piece.kind == TextPiece::Removed ? "del" : "ins", text.toHtmlEscaped());
}

QString HtmlReportWriter::changedText(const QVector<TextPiece>& pieces)
{
    QString html;
    for (int i = 0; i < pieces.size(); ++i) {
        const TextPiece& piece = pieces.at(i);
        html += piece.kind == TextPiece::Equal
            ? ReportTexts::context(piece.text, i == 0, i == pieces.size() - 1).toHtmlEscaped()
            : markedHtml(piece, ReportTexts::visibleChange(piece.text));
    }
    return html;
}

void HtmlReportWriter::add(const Difference& difference)
{
    addHeading(ReportTexts::heading(difference));
    if (difference.kind == Difference::Text) {
        addLine(element("p", changedText(difference.pieces)));
        return;
    }
    for (const TextPiece& piece : difference.pieces)
        addLine(element("p", markedHtml(piece, ReportTexts::visibleParagraph(piece.text))));
    if (difference.kind != Difference::Format)
        return;
    const QString words = difference.words.isEmpty()
        ? QString()
        : htmlText(ReportTexts::quoted(difference.words)) + QLatin1String(": ");
    addItem(words + htmlText(difference.changes.join(QLatin1String(", "))));
}

} // namespace

QByteArray htmlReport(const Differences& differences, const ComparedFiles& files)
{
    HtmlReportWriter report;
    for (const Difference& difference : differences.list)
        report.add(difference);
    if (!differences.frequent.isEmpty())
        report.addHeading(ReportTexts::frequentHeading());
    for (const FrequentChange& change : differences.frequent)
        report.add(change);
    const QString title = Messages::tr("Differences");
    const QString page = QLatin1String("<!DOCTYPE html>\n<html lang=\"")
        + Messages::tr("en", "language of the report")
        + QLatin1String("\">\n<head>\n<meta charset=\"utf-8\">\n") + element("title", title.toHtmlEscaped())
        + QLatin1String("\n<style>\n") + QLatin1String(styleSheet)
        + QLatin1String("</style>\n</head>\n<body>\n") + element("h1", title.toHtmlEscaped())
        + QLatin1String("\n<dl>\n") + element("dt", Messages::tr("before").toHtmlEscaped())
        + element("dd", htmlText(files.before)) + QLatin1Char('\n')
        + element("dt", Messages::tr("after").toHtmlEscaped()) + element("dd", htmlText(files.after))
        + QLatin1String("\n</dl>\n")
        + element("p",
                  (differences.isEmpty() ? Messages::tr("no difference") : ReportTexts::summary(differences))
                      .toHtmlEscaped())
        + QLatin1Char('\n') + report.take() + QLatin1String("</body>\n</html>\n");
    return page.toUtf8();
}
