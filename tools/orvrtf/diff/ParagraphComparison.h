#ifndef ORVRTF_PARAGRAPHCOMPARISON_H
#define ORVRTF_PARAGRAPHCOMPARISON_H

#include "Difference.h"
#include "Model.h"

#include <QHash>
#include <QPair>

class ChangeNames;
class Symbols;

/*! What two paragraphs differ in. Changes are numbers of ChangeNames. */
struct ParagraphDifferences {
    struct Words {
        QString text;
        QVector<int> changes;
    };
    struct Objects {
        const Model::Object* before;
        const Model::Object* after;
    };

    /*! All of the text; empty when it is equal. */
    QVector<TextPiece> pieces;
    /*! What all of the text that both have, or an empty paragraph, has changed in. */
    QVector<int> changes;
    /*! What only some words have changed in. */
    QVector<Words> words;
    /*! Pictures and notes at the same places. */
    QVector<Objects> objects;
    /*! Whether both have text in common, or none at all. */
    bool hasCommonText = false;
};

/*! Compares the words of paragraphs, and the formats of those that both have. */
class ParagraphComparison {
public:
    ParagraphComparison(const Model::Document& before, const Model::Document& after, Symbols* symbols,
                        ChangeNames* names)
        : m_before(before), m_after(after), m_symbols(symbols), m_names(names)
    {
    }

    ParagraphDifferences compare(const Model::Paragraph& before, const Model::Paragraph& after);

    /*! All of \a paragraph of \a document, with notes and names of pictures in brackets, as a piece of \a kind. */
    static TextPiece piece(TextPiece::Kind kind, const Model::Document& document,
                           const Model::Paragraph& paragraph);

private:
    enum Surface { Letters, Blanks, Objects, Empty, Labels, SurfaceCount };
    typedef QPair<int, int> Formats;

    friend class ParagraphComparer;

    const QVector<int>& changes(int before, int after, Surface surface);
    QStringList newChanges(int before, int after, Surface surface) const;

    const Model::Document& m_before;
    const Model::Document& m_after;
    Symbols* m_symbols;
    ChangeNames* m_names;
    QHash<Formats, QVector<int>> m_changes[SurfaceCount];
};

#endif
