#include "livetable.h"
#include "testsupport.h"

using namespace livetable;
using namespace rtftest;

namespace {

/*! Random tables of a fixed seed. */
class Generator {
public:
    explicit Generator(unsigned seed) : m_engine(seed) { }

    int upTo(int n) { return int(m_engine() % unsigned(n + 1)); }
    bool oneIn(int n) { return upTo(n - 1) == 0; }

    /*! Rows with any boundaries, so that columns are split; no cell is merged with the one above. */
    QList<Row> splitTable()
    {
        QList<Row> rows;
        for (int r = upTo(7); r >= 0; --r) {
            Row row = rowOf(boundaries(1 + upTo(5)));
            for (Definition& definition : row.definitions)
                definition.horizontalMerge = oneIn(8);
            if (oneIn(6))
                row.cells = cells(qMax(1, int(row.cells.size()) + upTo(4) - 2));
            rows << row;
        }
        return rows;
    }

    /*! Rows whose boundaries are the first row's or some of them; any cell may be merged. */
    QList<Row> mergedTable()
    {
        const QList<int> all = boundaries(1 + upTo(5));
        QList<Row> rows;
        rows << rowOf(all);
        for (int r = upTo(7); r > 0; --r)
            rows << rowOf(oneIn(2) ? all : some(all));
        for (Row& row : rows) {
            for (Definition& definition : row.definitions) {
                definition.verticalMerge = oneIn(3);
                definition.horizontalMerge = oneIn(5);
            }
            if (oneIn(10))
                row.cells.removeLast();
            if (row.cells.isEmpty())
                row.cells = cells(1);
        }
        return rows;
    }

private:
    QList<int> boundaries(int count)
    {
        QList<int> steps;
        for (int step = 1; step <= 12; ++step)
            steps << step * 720;
        while (steps.size() > count)
            steps.removeAt(upTo(int(steps.size()) - 1));
        return steps;
    }

    /*! Some of \a all, the last one among them. */
    QList<int> some(const QList<int>& all)
    {
        QList<int> result;
        for (int i = 0; i + 1 < all.size(); ++i) {
            if (oneIn(2))
                result << all.at(i);
        }
        return result << all.last();
    }

    Row rowOf(const QList<int>& boundaries)
    {
        static const QColor colors[] = {Qt::red, Qt::green, Qt::blue, Qt::white};
        Row row;
        for (int boundary : boundaries) {
            Definition definition;
            definition.boundary = boundary;
            if (oneIn(3))
                definition.color = colors[upTo(3)];
            definition.alignment = QTextCharFormat::AlignMiddle + upTo(2);
            row.definitions << definition;
        }
        row.cells = cells(int(boundaries.size()));
        row.padding = upTo(3);
        return row;
    }

    QList<Cell> cells(int count)
    {
        QList<Cell> result;
        for (int i = 0; i < count; ++i)
            result << cell();
        return result;
    }

    Cell cell()
    {
        Cell result;
        const int words = upTo(2);
        result << paragraph(qMin(1, words));
        if (words == 2 && oneIn(2))
            result << paragraph(1);
        else if (words == 2)
            result.last().words << word();
        return result;
    }

    Paragraph paragraph(int words)
    {
        Paragraph result;
        result.alignment = QList<int>({0, 1, 2, 4}).at(upTo(3));
        result.italic = oneIn(2);
        for (int i = 0; i < words; ++i)
            result.words << word();
        return result;
    }

    QPair<QString, bool> word() { return qMakePair("w%1"_s.arg(++m_words), oneIn(2)); }

    std::mt19937 m_engine;
    int m_words = 0;
};

QByteArray number(int n)
{
    return QByteArray::number(n);
}

QByteArray rtfOf(const Definition& definition)
{
    static const QColor colors[] = {Qt::red, Qt::green, Qt::blue, Qt::white};
    QByteArray rtf;
    if (definition.verticalMerge)
        rtf += "\\clvmrg";
    if (definition.horizontalMerge)
        rtf += "\\clmrg";
    for (int i = 0; i < 4; ++i) {
        if (definition.color == colors[i])
            rtf += "\\clcbpat" + number(i + 1);
    }
    if (definition.alignment == QTextCharFormat::AlignMiddle)
        rtf += "\\clvertalc";
    else if (definition.alignment == QTextCharFormat::AlignBottom)
        rtf += "\\clvertalb";
    return rtf + "\\cellx" + number(definition.boundary);
}

QByteArray rtfOf(const Paragraph& paragraph)
{
    static const char* const alignments[] = {"", "\\ql", "\\qr", "", "\\qc"};
    QByteArray rtf = "\\pard\\intbl"_b + alignments[paragraph.alignment];
    if (paragraph.words.isEmpty())
        rtf += paragraph.italic ? "\\i" : "\\i0";
    for (const auto& word : paragraph.words)
        rtf += (word.second ? "\\i " : "\\i0 ") + word.first.toLatin1();
    return rtf;
}

QByteArray rtfOf(const Row& row)
{
    QByteArray rtf = "\\trowd\\trgaph" + number(int(row.padding * 20));
    for (const Definition& definition : row.definitions)
        rtf += rtfOf(definition);
    for (const Cell& cell : row.cells) {
        for (int i = 0; i < cell.size(); ++i)
            rtf += (i > 0 ? "\\par" : "") + rtfOf(cell.at(i));
        rtf += "\\cell";
    }
    return rtf + "\\row\n";
}

QByteArray rtfOf(const QList<Row>& rows, bool closed)
{
    QByteArray rtf = "{\\rtf1" + colorTable();
    for (const Row& row : rows)
        rtf += rtfOf(row);
    return rtf + (closed ? "\\pard\\qc\\i after}" : "}");
}

/*! The same document, its table made row by row. */
QSharedPointer<QTextDocument> liveDocument(const QList<Row>& rows, bool closed)
{
    const QSharedPointer<QTextDocument> document = newDocument();
    Table table{QTextCursor(document.data())};
    for (const Row& row : rows)
        table.addRow(row);
    if (closed) {
        QTextCursor cursor = table.close(8640.0);
        QTextBlockFormat centred;
        centred.setAlignment(Qt::AlignHCenter);
        cursor.setBlockFormat(centred);
        cursor.setBlockCharFormat(italicFormat(true));
        cursor.insertText("after"_s, italicFormat(true));
    }
    return document;
}

QString own(const QTextFormat& format)
{
    return '[' + dump(ownProperties(format)) + ']';
}

/*! Which paragraphs are compared with their formats. */
enum ParagraphFormats { EveryCell, UnjoinedCells };

/*!
    Of an empty paragraph only its existence: when a column or row is inserted behind an empty cell, Qt gives
    the paragraph's format to the new cell instead.
*/
void addLines(QStringList& lines, const QTextBlock& block, bool withFormats = true)
{
    if (block.length() == 1)
        lines << "  empty paragraph";
    else if (withFormats)
        lines << "  paragraph " + own(block.blockFormat()) + " for typing " + own(block.charFormat());
    else
        lines << "  paragraph";
    const QList<QTextFragment> fragments = fragmentsOf(block);
    for (const QTextFragment& fragment : fragments)
        lines << "    '" + fragment.text() + "' " + own(fragment.charFormat());
}

void addLines(QStringList& lines, const QTextTable* table, ParagraphFormats formats)
{
    lines << "table " + own(table->format()) + " widths " + widthsOf(table) << shapeOf(table);
    for (int r = 0; r < table->rows(); ++r) {
        for (int c = 0; c < table->columns(); ++c) {
            const QTextTableCell cell = table->cellAt(r, c);
            lines << " cell %1,%2 starts at %3,%4"_s.arg(r).arg(c).arg(cell.row()).arg(cell.column());
            if (cell.row() != r || cell.column() != c)
                continue;
            lines << " format " + own(cell.format());
            // Cells that span both ways may have been joined from several; which of their paragraph formats
            // are left then depends on the order in which Qt joined them.
            const bool joined = formats == UnjoinedCells && cell.rowSpan() > 1 && cell.columnSpan() > 1;
            const QList<QTextBlock> blocks = blocksOf(cell);
            for (const QTextBlock& block : blocks)
                addLines(lines, block, !joined);
        }
    }
}

/*! Everything of a document that tables can change, one thing a line. */
QStringList linesOf(const QTextDocument& document, ParagraphFormats formats = EveryCell)
{
    QStringList lines;
    const QTextFrame* root = document.rootFrame();
    for (QTextFrame::iterator it = root->begin(); it != root->end(); ++it) {
        if (const QTextTable* table = qobject_cast<QTextTable*>(it.currentFrame()))
            addLines(lines, table, formats);
        else
            addLines(lines, it.currentBlock());
    }
    return lines;
}

/*! The line that tells the table's structure, the one behind its format. */
QString shapeIn(const QStringList& lines)
{
    for (int i = 0; i < lines.size(); ++i) {
        if (lines.at(i).startsWith("table "_s))
            return lines.value(i + 1);
    }
    return QString();
}

/*! The first line that differs, and the tables it belongs to; empty when there is none. */
QString difference(const QStringList& actual, const QStringList& expected)
{
    for (int i = 0; i < qMax(actual.size(), expected.size()); ++i) {
        if (actual.value(i) != expected.value(i))
            return "\nactual   " + actual.value(i) + "\nexpected " + expected.value(i) + "\nactual table   "
                + shapeIn(actual) + "\nexpected table " + shapeIn(expected);
    }
    return QString();
}

} // namespace

/*! What the reader makes of rows, compared with tables that grow row by row by Qt's own operations. */
class TestTablesModel : public QObject {
    Q_OBJECT

private slots:
    /*! Any change of a row is seen by the comparison. */
    void differenceIsFound()
    {
        Row row;
        row.definitions << Definition() << Definition();
        row.definitions[0].boundary = 4320;
        row.definitions[1].boundary = 8640;
        Paragraph paragraph;
        paragraph.words << qMakePair("word"_s, false);
        row.cells << Cell{paragraph} << Cell{paragraph};
        const QStringList lines = linesOf(*liveDocument({row, row}, true));

        const QList<std::function<void(Row&)>> changes = {
            [](Row& r) { r.padding += 1; },
            [](Row& r) { r.definitions[1].boundary += 1; },
            [](Row& r) { r.definitions[0].boundary -= 1; },
            [](Row& r) { r.definitions[0].color = Qt::yellow; },
            [](Row& r) { r.definitions[1].alignment = QTextCharFormat::AlignBottom; },
            [](Row& r) { r.definitions[0].verticalMerge = true; },
            [](Row& r) { r.definitions[1].horizontalMerge = true; },
            [](Row& r) { r.cells[0][0].alignment = Qt::AlignRight; },
            [](Row& r) { r.cells[1][0].words[0].first += QLatin1Char('s'); },
            [](Row& r) { r.cells[1][0].words[0].second = true; },
            [](Row& r) { r.cells[1] << r.cells[0]; },
            [](Row& r) { r.cells.removeLast(); }};
        QVERIFY(difference(linesOf(*liveDocument({row, row}, true)), lines).isEmpty());
        QVERIFY(!difference(linesOf(*liveDocument({row, row}, false)), lines).isEmpty());
        for (int i = 0; i < changes.size(); ++i) {
            Row changed = row;
            changes.at(i)(changed);
            const QString found = difference(linesOf(*liveDocument({row, changed}, true)), lines);
            QVERIFY2(!found.isEmpty(), qPrintable(QString::number(i)));
        }
    }

    /*! Columns that are split, joined and appended. */
    ORV_ROWS(splits)
    {
        const Rows add(
            [](int seed) { compare(Generator(unsigned(seed)).splitTable(), seed % 4 != 0, EveryCell); });
        for (int seed = 1; seed <= 500; ++seed)
            add(QByteArray::number(seed), seed);
    }

    /*! Cells merged with the cell above or to the left, in tables whose columns stay. */
    ORV_ROWS(merges)
    {
        const Rows add(
            [](int seed) { compare(Generator(unsigned(seed)).mergedTable(), seed % 4 != 0, UnjoinedCells); });
        for (int seed = 1; seed <= 500; ++seed)
            add(QByteArray::number(seed), seed);
    }

private:
    static void compare(const QList<Row>& rows, bool closed, ParagraphFormats formats)
    {
        const QByteArray rtf = rtfOf(rows, closed);
        const Reading reading = read(rtf);
        QCOMPARE(reading.status, 0);
        const QString found =
            difference(linesOf(*reading.document, formats), linesOf(*liveDocument(rows, closed), formats));
        QVERIFY2(found.isEmpty(), qPrintable(found + '\n' + QString::fromLatin1(rtf)));
    }
};

ORV_TEST("tables_model", TestTablesModel, QGuiApplication)
#include "model.moc"
