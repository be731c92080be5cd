#ifndef ORVRTFTEXTSOURCE_P_H
#define ORVRTFTEXTSOURCE_P_H

#include "ORVRtfRunFormat_p.h"
#include "ORVTextListLabels.h"

#include <memory>
#include <vector>

class QTextBlock;
class QTextDocument;
class QTextFragment;

/*! The document that the text at hand belongs to: the one that is written, or that of a note. */
class ORVRtfTextSource {
public:
    ORVRtfTextSource() = default;
    explicit ORVRtfTextSource(QTextDocument* document) : m_document(document) { }

    QTextDocument* document() const { return m_document; }
    ORVRtfRunFormat& runFormat(const QTextFragment& fragment);
    /*! The format of an empty paragraph, and of the marker of a list item. */
    ORVRtfRunFormat& runFormat(const QTextBlock& block);
    /*! The marker of \a block. All of them are worked out when the first is asked for. */
    ORVTextListLabels::Label label(const QTextBlock& block);

private:
    std::unique_ptr<ORVRtfRunFormat>& runFormatAt(int number);

    QTextDocument* m_document = nullptr;
    // By the number of the format in the document.
    std::vector<std::unique_ptr<ORVRtfRunFormat>> m_formats;
    std::unique_ptr<ORVTextListLabels> m_labels;
};

#endif
