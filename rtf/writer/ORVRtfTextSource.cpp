#include "ORVRtfTextSource_p.h"

#include "ORVRtfProperties.h"

#include <QtGui/QTextBlock>

namespace {

std::unique_ptr<ORVRtfRunFormat> describe(const QTextCharFormat& format)
{
    std::unique_ptr<ORVRtfRunFormat> run(new ORVRtfRunFormat);
    run->format = format;
    run->state = ORVRtfFragmentState::cleanState(format);
    run->isPicture = format.toImageFormat().isValid();
    run->pageReference = format.property(ORVRtfProperty::PageReference).toString();
    return run;
}

} // namespace

ORVRtfRunFormat& ORVRtfTextSource::runFormat(const QTextFragment& fragment)
{
    std::unique_ptr<ORVRtfRunFormat>& run = runFormatAt(fragment.charFormatIndex());
    if (!run)
        run = describe(fragment.charFormat());
    return *run;
}

ORVRtfRunFormat& ORVRtfTextSource::runFormat(const QTextBlock& block)
{
    std::unique_ptr<ORVRtfRunFormat>& run = runFormatAt(block.charFormatIndex());
    if (!run)
        run = describe(block.charFormat());
    return *run;
}

ORVTextListLabels::Label ORVRtfTextSource::label(const QTextBlock& block)
{
    if (!m_labels)
        m_labels.reset(new ORVTextListLabels(m_document));
    return m_labels->label(block);
}

std::unique_ptr<ORVRtfRunFormat>& ORVRtfTextSource::runFormatAt(int number)
{
    const size_t index = size_t(number);
    if (index >= m_formats.size())
        m_formats.resize(index + 1);
    return m_formats[index];
}
