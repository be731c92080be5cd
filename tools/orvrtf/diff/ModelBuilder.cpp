#include "ModelBuilder.h"

#include "ItemText.h"
#include "ParagraphFacts.h"
#include "Symbols.h"
#include "TableFacts.h"
#include "TextFacts.h"

#include <ORVPageGeometry.h>

#include <QHash>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFragment>
#include <QTextTable>

using namespace Model;

namespace {

const int deepestTable = 32;
// Stand for notes in texts: Unicode has them for annotations. In the order of ORVNote::Kind.
const ushort noteCharacters[] = {0xfff9, 0xfffa, 0xfffb};

class DocumentModel {
public:
    DocumentModel(const QTextDocument& source, Symbols* symbols, bool hasLanguages);

    Document take();

private:
    typedef QTextFrame::iterator FrameIterator;

    void addFrame(FrameIterator begin, int depth, Flow* flow);
    void addBlocks(const QTextFrame& frame, Flow* flow);
    void addBlock(const QTextBlock& block, Flow* flow);
    bool isSeen(const QTextBlock& block) const;
    void addTable(const QTextTable& table, int depth, Flow* flow);
    int paragraphFormat(const QTextBlock& block);
    int textFormat(int index, const QTextCharFormat& format);
    void addText(const QTextBlock& block, Paragraph* paragraph);
    void addFragment(const QTextFragment& fragment, Paragraph* paragraph);
    void addPart(const QTextFragment& fragment, int from, int end, Paragraph* paragraph);
    void addNote(const ORVNote& note, int format, Paragraph* paragraph);
    void beginRun(int format, Paragraph* paragraph) const;

    Document m_result;
    Symbols* m_symbols;
    const bool m_hasLanguages;
    const ORVTextListLabels m_labels;
    const QVector<ORVNote> m_notes;
    const QString m_language;
    const double m_textWidth;
    int m_nextNote = 0;
    int m_noteCounts[3] = {0, 0, 0};
    int m_pictures = 0;
    // A note in the midst of the text goes on in the next block; then the text behind it belongs to the last paragraph.
    bool m_goesOn = false;
    // By the index of the format, and the direction of the text.
    QHash<int, int> m_paragraphFormats;
    QHash<int, int> m_textFormats;
};

DocumentModel::DocumentModel(const QTextDocument& source, Symbols* symbols, bool hasLanguages)
    : m_symbols(symbols), m_hasLanguages(hasLanguages), m_labels(&source), m_notes(ORVNotes::all(&source)),
      m_language(source.property("language").toString()),
      m_textWidth(ORVPageGeometry::of(&source).textWidth())
{
    m_result.source = &source;
}

Document DocumentModel::take()
{
    addFrame(m_result.source->rootFrame()->begin(), 0, &m_result.body);
    return std::move(m_result);
}

/*! Qt needs a paragraph between a table and another one, or the beginning or end of what contains it. */
void DocumentModel::addFrame(FrameIterator it, int depth, Flow* flow)
{
    bool isBehindFrame = true;
    bool isBehindTable = false;
    while (!it.atEnd()) {
        QTextFrame* const frame = it.currentFrame();
        const QTextBlock block = it.currentBlock();
        ++it;
        if (frame) {
            QTextTable* const table = qobject_cast<QTextTable*>(frame);
            if (depth > deepestTable)
                addBlocks(*frame, flow);
            else if (table)
                addTable(*table, depth, flow);
            else
                addFrame(frame->begin(), depth + 1, flow);
        } else if (block.isValid()) {
            const bool isNeeded =
                it.atEnd() ? isBehindTable : isBehindFrame && qobject_cast<QTextTable*>(it.currentFrame());
            if (block.length() > 1 || !isNeeded || m_goesOn || isSeen(block))
                addBlock(block, flow);
        }
        isBehindFrame = frame != nullptr;
        isBehindTable = qobject_cast<QTextTable*>(frame) != nullptr;
    }
}

/*! Whether \a block, although it is empty, has something that is seen. */
bool DocumentModel::isSeen(const QTextBlock& block) const
{
    return m_labels.label(block).list >= 0
        || block.blockFormat().pageBreakPolicy() != QTextFormat::PageBreak_Auto;
}

void DocumentModel::addBlocks(const QTextFrame& frame, Flow* flow)
{
    const int end = frame.lastPosition();
    QTextBlock block = m_result.source->findBlock(frame.firstPosition());
    for (; block.isValid() && block.position() <= end; block = block.next())
        addBlock(block, flow);
}

void DocumentModel::addBlock(const QTextBlock& block, Flow* flow)
{
    const bool isNew = !m_goesOn || flow->empty() || flow->back().table;
    if (isNew) {
        Paragraph paragraph;
        paragraph.format = paragraphFormat(block);
        paragraph.endFormat = textFormat(block.charFormatIndex(), block.charFormat());
        paragraph.label = m_labels.label(block);
        flow->push_back({0, int(m_result.paragraphs.size()), nullptr});
        m_result.paragraphs.push_back(paragraph);
    }
    Paragraph& paragraph = m_result.paragraphs[std::size_t(flow->back().paragraph)];
    addText(block, &paragraph);
    flow->back().text = m_symbols->of(paragraph.text);
}

int DocumentModel::paragraphFormat(const QTextBlock& block)
{
    const int key = 2 * block.blockFormatIndex() + (block.textDirection() == Qt::RightToLeft ? 1 : 0);
    const auto known = m_paragraphFormats.constFind(key);
    if (known != m_paragraphFormats.constEnd())
        return *known;
    const int number = int(m_result.paragraphFacts.size());
    m_result.paragraphFacts.push_back(ParagraphFacts::of(block, m_textWidth));
    m_paragraphFormats.insert(key, number);
    return number;
}

int DocumentModel::textFormat(int index, const QTextCharFormat& format)
{
    const auto known = m_textFormats.constFind(index);
    if (known != m_textFormats.constEnd())
        return *known;
    const int number = int(m_result.textFacts.size());
    m_result.textFacts.push_back(TextFacts::of(format, m_language, m_hasLanguages));
    m_textFormats.insert(index, number);
    return number;
}

void DocumentModel::beginRun(int format, Paragraph* paragraph) const
{
    if (paragraph->runs.isEmpty() || paragraph->runs.last().format != format)
        paragraph->runs.append({int(paragraph->text.size()), format});
}

void DocumentModel::addText(const QTextBlock& block, Paragraph* paragraph)
{
    for (QTextBlock::iterator it = block.begin(); !it.atEnd(); ++it)
        addFragment(it.fragment(), paragraph);
    const int end = block.position() + block.length() - 1;
    m_goesOn = m_nextNote < m_notes.size() && m_notes.at(m_nextNote).position <= end
        && m_notes.at(m_nextNote).position + m_notes.at(m_nextNote).length > end;
}

/*! A mark, and the text of a note in line, is left out; a note that text has stands behind the text. */
void DocumentModel::addFragment(const QTextFragment& fragment, Paragraph* paragraph)
{
    int from = fragment.position();
    const int end = from + fragment.length();
    while (from < end) {
        if (m_nextNote == m_notes.size() || m_notes.at(m_nextNote).position >= end) {
            addPart(fragment, from, end, paragraph);
            return;
        }
        const ORVNote& note = m_notes.at(m_nextNote);
        const int noteEnd = note.position + note.length;
        const int textEnd =
            note.holding == ORVNote::Attached ? qMin(end, noteEnd) : qMax(from, note.position);
        addPart(fragment, from, textEnd, paragraph);
        from = qMin(end, noteEnd);
        if (from < noteEnd)
            return;
        addNote(note, textFormat(fragment.charFormatIndex(), fragment.charFormat()), paragraph);
        ++m_nextNote;
    }
}

void DocumentModel::addPart(const QTextFragment& fragment, int from, int end, Paragraph* paragraph)
{
    if (from >= end)
        return;
    const QTextCharFormat format = fragment.charFormat();
    beginRun(textFormat(fragment.charFormatIndex(), format), paragraph);
    const int begin = int(paragraph->text.size());
    paragraph->text += fragment.text().mid(from - fragment.position(), end - from);
    if (!format.isImageFormat())
        return;
    for (int position = begin; position < paragraph->text.size(); ++position)
        paragraph->objects.append({position, false, ORVNote(), format.toImageFormat(), ++m_pictures});
}

void DocumentModel::addNote(const ORVNote& note, int format, Paragraph* paragraph)
{
    beginRun(format, paragraph);
    paragraph->objects.append(
        {int(paragraph->text.size()), true, note, QTextImageFormat(), ++m_noteCounts[note.kind]});
    paragraph->text += QChar(noteCharacters[note.kind]);
}

void DocumentModel::addTable(const QTextTable& table, int depth, Flow* flow)
{
    const std::shared_ptr<Table> model = std::make_shared<Table>();
    model->rows = table.rows();
    model->columns = table.columns();
    model->facts = TableFacts::of(table, m_textWidth);
    model->grid.fill(0, model->rows * model->columns);
    QString text = QStringLiteral("\n");
    for (int row = 0; row < model->rows; ++row) {
        for (int column = 0; column < model->columns; ++column) {
            const QTextTableCell cell = table.cellAt(row, column);
            int& index = model->grid[row * model->columns + column];
            if (cell.row() != row || cell.column() != column) {
                index = model->grid.at(cell.row() * model->columns + cell.column());
                continue;
            }
            index = int(model->cells.size());
            model->cells.push_back({row, column, TableFacts::ofCell(table, cell), Flow()});
            Flow content;
            addFrame(cell.begin(), depth + 1, &content);
            text += ItemText::key(content);
            model->cells[std::size_t(index)].flow = std::move(content);
        }
    }
    flow->push_back({m_symbols->of(text), -1, model});
}

} // namespace

Document ModelBuilder::of(const QTextDocument& source, Symbols* symbols, bool hasLanguages)
{
    return DocumentModel(source, symbols, hasLanguages).take();
}
