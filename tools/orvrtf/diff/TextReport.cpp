#include "TextReport.h"

#include "ReportTexts.h"

namespace {

QString markedText(const TextPiece& piece, const QString& text)
{
    switch (piece.kind) {
    case TextPiece::Removed: return QLatin1String("[-") + text + QLatin1String("-]");
    case TextPiece::Added: return QLatin1String("{+") + text + QLatin1String("+}");
    default: return text;
    }
}

/*! Writes a line for each fact, below a heading for each place. */
class TextReportWriter {
public:
    QString take() const { return m_text; }

    void addHeading(const QString& heading)
    {
        if (heading == m_heading)
            return;
        m_heading = heading;
        m_text += heading + QLatin1String(":\n");
    }

    void addLine(const QString& line) { m_text += QLatin1String("  ") + line + QLatin1Char('\n'); }

    void add(const Difference& difference);
    void add(const FrequentChange& change)
    {
        addLine(ReportTexts::visible(change.change) + QLatin1String(": ") + ReportTexts::places(change));
    }

private:
    void addPieces(const QVector<TextPiece>& pieces);

    QString m_text;
    QString m_heading;
};

void TextReportWriter::add(const Difference& difference)
{
    addHeading(ReportTexts::heading(difference));
    if (difference.kind == Difference::Text) {
        addPieces(difference.pieces);
        return;
    }
    for (const TextPiece& piece : difference.pieces)
        addLine(markedText(piece, ReportTexts::visibleParagraph(piece.text)));
    if (difference.kind != Difference::Format)
        return;
    const QString words =
        difference.words.isEmpty() ? QString() : ReportTexts::quoted(difference.words) + QLatin1String(": ");
    addLine(words + ReportTexts::visible(difference.changes.join(QLatin1String(", "))));
}

void TextReportWriter::addPieces(const QVector<TextPiece>& pieces)
{
    QString line;
    for (int i = 0; i < pieces.size(); ++i) {
        const TextPiece& piece = pieces.at(i);
        line += piece.kind == TextPiece::Equal
            ? ReportTexts::context(piece.text, i == 0, i == pieces.size() - 1)
            : markedText(piece, ReportTexts::visibleChange(piece.text));
    }
    addLine(line);
}

} // namespace

QByteArray textReport(const Differences& differences, const ComparedFiles& files)
{
    if (differences.isEmpty())
        return QByteArray();
    TextReportWriter report;
    for (const Difference& difference : differences.list)
        report.add(difference);
    if (!differences.frequent.isEmpty())
        report.addHeading(ReportTexts::frequentHeading());
    for (const FrequentChange& change : differences.frequent)
        report.add(change);
    const QString text = QLatin1String("--- ") + ReportTexts::visible(files.before) + QLatin1String("\n+++ ")
        + ReportTexts::visible(files.after) + QLatin1Char('\n') + report.take()
        + ReportTexts::summary(differences) + QLatin1Char('\n');
    return text.toUtf8();
}
