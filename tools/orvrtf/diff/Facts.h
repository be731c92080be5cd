#ifndef ORVRTF_FACTS_H
#define ORVRTF_FACTS_H

#include <QColor>
#include <QString>
#include <QStringList>
#include <QVector>

/*!
    The value of a property, as it takes effect: words, texts and lengths in a row. Values of unequal properties in
    two documents are equal when nobody sees a difference.
*/
class FactValue {
public:
    /*! Appends \a word, an English message of QT_TRANSLATE_NOOP, which is shown translated. */
    FactValue& word(const char* word);
    /*! Appends a text of the document, which is shown as it is. */
    FactValue& text(const QString& text);
    /*! Appends a text of the document, which is shown in quotation marks. */
    FactValue& quoted(const QString& text);
    /*! Appends a length. */
    FactValue& points(double points);
    /*! Appends a share. */
    FactValue& percent(double percent);
    /*! Appends a number. */
    FactValue& number(int number);
    /*! Appends a colour: black for an invalid one, as that is what it looks like. */
    FactValue& color(const QColor& color);

    /*! Appends the name of a horizontal \a alignment, of which left and right change places if \a isMirrored. */
    FactValue& alignment(Qt::Alignment alignment, bool isMirrored = false);

    bool isEmpty() const { return m_parts.isEmpty(); }
    /*! Whether all parts are equal, lengths and shares up to what rounding to twips makes of them. */
    bool operator==(const FactValue& other) const;
    /*! The value for people. */
    QString shown() const;

private:
    enum Kind { Word, Text, Quoted, Points, Percent };
    struct Part {
        Kind kind;
        QString text;
        double number;
    };

    QVector<Part> m_parts;
};

/*! The names of the properties that are compared. */
namespace Facts {

enum Property {
    // Of text.
    Font,
    FontSize,
    Bold,
    Italic,
    Underline,
    Overline,
    StrikeOut,
    Capitals,
    Outline,
    TextColor,
    TextBackground,
    TextPosition,
    LetterSpacing,
    Stretch,
    Kerning,
    Language,
    Link,
    Bookmark,
    PageReference,
    Revision,
    // Of paragraphs.
    Alignment,
    Direction,
    Heading,
    LeftIndent,
    RightIndent,
    FirstLineIndent,
    LabelPosition,
    SpaceAbove,
    SpaceBelow,
    LineHeight,
    TabStops,
    Background,
    BorderAbove,
    BorderBelow,
    BorderLeft,
    BorderRight,
    Ruler,
    PageBreakBefore,
    PageBreakAfter,
    KeepWithNext,
    KeepTogether,
    ContextualSpacing,
    NoLineBreaks,
    // Of tables and cells.
    ColumnWidths,
    TableWidth,
    HeaderRows,
    CellSpacing,
    PaddingAbove,
    PaddingBelow,
    PaddingLeft,
    PaddingRight,
    VerticalAlignment,
    RowSpan,
    ColumnSpan,
    // Of pictures.
    PictureWidth,
    PictureHeight,
    Formula,
    // Of labels.
    Label,
    LabelLevel,
    LabelFollow,
    LabelJustification,
    // Of notes.
    Mark,
    Author,
    Date,
    // Of documents.
    PageSize,
    LeftMargin,
    RightMargin,
    TopMargin,
    BottomMargin,
    TabDistance,
    NotOnFirstPage,
    CountFirstPage,
    HeaderLook,
    FooterLook,
    PropertyCount
};

} // namespace Facts

/*! A property that is not as by default, and its value; without a value it is a matter of yes or no. */
struct Fact {
    int property;
    FactValue value;
};

/*! Facts in the order of their properties, each once. */
typedef QVector<Fact> FactList;

/*! Collects facts one by one. */
class FactCollector {
public:
    const FactList& facts() const { return m_facts; }

protected:
    void add(int property, const FactValue& value = FactValue()) { m_facts.append({property, value}); }
    void addIf(bool isTrue, int property)
    {
        if (isTrue)
            add(property);
    }

private:
    FactList m_facts;
};

namespace Facts {

/*! The tool's pixels are a 96th of an inch, in which Qt states the sizes of pictures. */
const double pointsPerPixel = 72.0 / 96;

/*! What is different in \a after, in words: "bold added", "size 12 pt → 14 pt". */
QStringList changes(const FactList& before, const FactList& after);

/*! Those of \a facts that \a properties contain. */
FactList only(const FactList& facts, const QVector<int>& properties);

/*! "name value added", or "removed", or "name before → after"; empty values are left out. */
QString change(const QString& name, const QString& before, const QString& after);

} // namespace Facts

#endif
