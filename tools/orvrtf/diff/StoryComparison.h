#ifndef ORVRTF_STORYCOMPARISON_H
#define ORVRTF_STORYCOMPARISON_H

#include "FormatGroups.h"
#include "LabelComparison.h"
#include "ModelBuilder.h"
#include "ParagraphComparison.h"
#include "PictureComparison.h"
#include "PlacedItems.h"

class DifferenceCollector;
class TableAlignment;

/*! Compares the texts of two documents, or of a note in each of them. */
class StoryComparison {
public:
    /*! Both comparisons of a document and of its notes share \a symbols and \a collector. */
    StoryComparison(const QTextDocument& before, const QTextDocument& after, bool hasLanguages,
                    Symbols* symbols, DifferenceCollector* collector);

    /*! \a depth: within how many notes the texts are, which stand at \a place. */
    void run(const Place& place = Place(), int depth = 0);

private:
    void compareItems(const PlacedItems& before, const PlacedItems& after);
    void compareGap(const PlacedItems& before, int firstBefore, int endBefore, const PlacedItems& after,
                    int firstAfter, int endAfter);
    void addOneSided(const Model::Document& document, const PlacedItems& items, Difference::Kind kind);
    void addLostTables(const PlacedItems& items, int first, int end, bool areAdded);
    void compareParagraphs(const PlacedItem& before, const PlacedItem& after);
    void compareObjects(const ParagraphDifferences::Objects& objects, const Place& place, int order);
    void compareNotes(const Model::Object& before, const Model::Object& after, int order);
    void compareTables(const PlacedItem& before, const PlacedItem& after);
    void compareCellsOf(const PlacedItem& before, const PlacedItem& after, const TableAlignment& alignment);
    void compareCells(const Model::Cell& before, const Model::Cell& after, const Place& tableBefore,
                      const Place& tableAfter);

    const bool m_hasLanguages;
    Symbols* m_symbols;
    DifferenceCollector* m_collector;
    const Model::Document m_before;
    const Model::Document m_after;
    ParagraphComparison m_paragraphs;
    PictureComparison m_pictures;
    LabelComparison m_labels;
    FormatGroups m_paragraphFormats;
    FormatGroups m_cellFormats;
    Place m_place;
    int m_depth = 0;
};

#endif
