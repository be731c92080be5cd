#include "FormatActions.h"

#include "Icons.h"

#include <QAction>
#include <QActionGroup>
#include <QColorDialog>
#include <QTextEdit>
#include <QTextList>

namespace {

bool isNumbered(QTextListFormat::Style style)
{
    return style <= QTextListFormat::ListDecimal;
}

/*! Takes the paragraphs that \a selection touches out of their lists. */
void removeFromLists(const QTextCursor& selection)
{
    const int end = selection.selectionEnd();
    QTextBlock block = selection.document()->findBlock(selection.selectionStart());
    for (; block.isValid() && block.position() <= end; block = block.next()) {
        if (!block.textList())
            continue;
        block.textList()->remove(block);
        QTextBlockFormat format = block.blockFormat();
        format.setIndent(0); // of the list, which Qt hands on to what leaves it
        QTextCursor(block).setBlockFormat(format);
    }
}

} // namespace

FormatActions::FormatActions(QTextEdit* edit) : QObject(edit), m_edit(edit)
{
    createTextActions();
    createAlignmentActions();
    createListActions();
    connect(m_edit, &QTextEdit::currentCharFormatChanged, this, &FormatActions::showTextFormat);
    connect(m_edit, &QTextEdit::cursorPositionChanged, this, &FormatActions::showParagraphFormat);
    showTextFormat();
    showParagraphFormat();
}

void FormatActions::createTextActions()
{
    m_bold = addToggle(tr("&Bold"), Icons::bold());
    m_bold->setShortcut(QKeySequence::Bold);
    connect(m_bold, &QAction::triggered, m_edit,
            [this](bool on) { m_edit->setFontWeight(on ? QFont::Bold : QFont::Normal); });

    m_italic = addToggle(tr("&Italic"), Icons::italic());
    m_italic->setShortcut(QKeySequence::Italic);
    connect(m_italic, &QAction::triggered, m_edit, &QTextEdit::setFontItalic);

    m_underline = addToggle(tr("&Underline"), Icons::underline());
    m_underline->setShortcut(QKeySequence::Underline);
    connect(m_underline, &QAction::triggered, m_edit, &QTextEdit::setFontUnderline);

    m_color = new QAction(tr("&Colour…"), this);
    connect(m_color, &QAction::triggered, this, &FormatActions::chooseColor);
    m_actions << m_color;
    addSeparator();
}

void FormatActions::createAlignmentActions()
{
    m_alignments = new QActionGroup(this);
    addAlignment(tr("Align &left"), Qt::AlignLeft);
    addAlignment(tr("C&entre"), Qt::AlignHCenter);
    addAlignment(tr("Align &right"), Qt::AlignRight);
    addAlignment(tr("&Justify"), Qt::AlignJustify);
    addSeparator();
}

void FormatActions::createListActions()
{
    m_bullets = addList(tr("Bullet &list"), Icons::bulletList(), QTextListFormat::ListDisc);
    m_numbers = addList(tr("&Numbered list"), Icons::numberedList(), QTextListFormat::ListDecimal);
}

QAction* FormatActions::addToggle(const QString& text, const QIcon& icon)
{
    QAction* action = new QAction(icon, text, this);
    action->setCheckable(true);
    m_actions << action;
    return action;
}

void FormatActions::addSeparator()
{
    QAction* separator = new QAction(this);
    separator->setSeparator(true);
    m_actions << separator;
}

void FormatActions::addAlignment(const QString& text, Qt::Alignment alignment)
{
    QAction* action = addToggle(text, Icons::alignment(alignment));
    action->setData(int(alignment));
    m_alignments->addAction(action);
    connect(action, &QAction::triggered, m_edit, [=] { m_edit->setAlignment(alignment); });
}

QAction* FormatActions::addList(const QString& text, const QIcon& icon, QTextListFormat::Style style)
{
    QAction* action = addToggle(text, icon);
    connect(action, &QAction::triggered, this, [=](bool on) { setList(style, on); });
    return action;
}

void FormatActions::chooseColor()
{
    const QColor color = QColorDialog::getColor(m_edit->textColor(), m_edit->window());
    if (color.isValid())
        m_edit->setTextColor(color);
}

void FormatActions::setList(QTextListFormat::Style style, bool on)
{
    QTextCursor cursor = m_edit->textCursor();
    cursor.beginEditBlock();
    removeFromLists(cursor);
    if (on)
        cursor.createList(style);
    cursor.endEditBlock();
    showParagraphFormat();
}

void FormatActions::showTextFormat()
{
    m_bold->setChecked(m_edit->fontWeight() > QFont::Normal);
    m_italic->setChecked(m_edit->fontItalic());
    m_underline->setChecked(m_edit->fontUnderline());
    m_color->setIcon(Icons::color(m_edit->textColor()));
}

void FormatActions::showParagraphFormat()
{
    const Qt::Alignment alignment = m_edit->alignment() & Qt::AlignHorizontal_Mask;
    const QList<QAction*> alignments = m_alignments->actions();
    for (QAction* action : alignments)
        action->setChecked(action->data().toInt() == int(alignment));

    const QTextList* list = m_edit->textCursor().currentList();
    // Headings may be in lists that show nothing.
    const QTextListFormat::Style style = list ? list->format().style() : QTextListFormat::ListStyleUndefined;
    m_bullets->setChecked(style != QTextListFormat::ListStyleUndefined && !isNumbered(style));
    m_numbers->setChecked(isNumbered(style));
}
