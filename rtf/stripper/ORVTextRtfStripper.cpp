#include "ORVTextRtfStripper.h"

#include "ORVTextRtfStripper_p.h"

#include <QtCore/QIODevice>

namespace {

const int escapedByteDigits = 2;

} // namespace

ORVTextRtfStripper::ORVTextRtfStripper() : ORVTextRtfReader(new ORVTextRtfStripperPrivate) { }

ORVTextRtfStripper::~ORVTextRtfStripper() { }

void ORVTextRtfStripper::setOutput(QIODevice* output)
{
    static_cast<ORVTextRtfStripperPrivate*>(d)->setOutput(output);
}

void ORVTextRtfStripper::process()
{
    static_cast<ORVTextRtfStripperPrivate*>(d)->process();
}

ORVTextRtfStripperPrivate::ORVTextRtfStripperPrivate()
{
    m_lacksOutput = true;
}

void ORVTextRtfStripperPrivate::setOutput(QIODevice* output)
{
    m_sink.setDevice(output);
    m_lacksOutput = !output;
}

void ORVTextRtfStripperPrivate::process()
{
    const QIODevice* const input = m_input.device();
    const QIODevice* const output = m_sink.device();
    if (!input || !output || (!input->isOpen() && !output->isOpen()))
        return;
    m_skipDepth = 0;
    m_spaceOwed = false;
    m_sink.begin();
    copyInput();
    m_sink.flush();
}

void ORVTextRtfStripperPrivate::copyInput()
{
    bool ok = true;
    for (char c = m_input.charAt(0, &ok); ok; c = m_input.charAt(0, &ok)) {
        switch (c) {
        case '\\': parseKeyword(); break;
        case '{':
            openGroup();
            m_input.release(1);
            break;
        case '}':
            closeGroup();
            m_input.release(1);
            break;
        case '\n':
            if (m_skipDepth == 0)
                endLine();
            m_input.release(1);
            break;
        case '\r': m_input.release(1); break;
        default: copyText(); break;
        }
    }
}

int ORVTextRtfStripperPrivate::translateControlWord(KeyWord keyWord, bool hasParameter, int parameter)
{
    m_sink.append(toLatin1(keyWord));
    if (hasParameter)
        m_sink.appendNumber(parameter);
    switch (keyWord) {
    case Picture:
    case ListText:
    case ListBulletPlainText:
        // The rest of the group is left out, but for its closing brace.
        ++m_skipDepth;
        break;
    case EndCell:
    case EndRow:
    case EndNestedCell:
    case EndNestedRow:
    case CellRightBoundary: endLine(); break;
    case BinaryData: {
        bool ok = false;
        if (parameter > 0)
            m_input.charAt(parameter, &ok);
        if (ok)
            copyBytes(parameter);
        break;
    }
    case ExtendedCharacterValue:
        m_input.charAt(escapedByteDigits - 1);
        copyBytes(qMin(escapedByteDigits, m_input.available()));
        break;
    default: m_spaceOwed = true; break;
    }
    return NoError;
}

void ORVTextRtfStripperPrivate::openGroup()
{
    if (m_skipDepth > 0) {
        ++m_skipDepth;
        return;
    }
    endLine();
    m_sink.append('{');
}

void ORVTextRtfStripperPrivate::closeGroup()
{
    if (m_skipDepth > 0 && --m_skipDepth > 0)
        return;
    m_sink.append('}');
    endLine();
}

void ORVTextRtfStripperPrivate::copyText()
{
    const int length = m_input.textLength();
    if (m_skipDepth == 0) {
        if (m_spaceOwed)
            m_sink.append(' ');
        m_spaceOwed = false;
        m_sink.append(m_input.data(), length);
    }
    m_input.release(length);
}

/*! Copies the next \a count bytes, which are buffered, whatever they are. */
void ORVTextRtfStripperPrivate::copyBytes(int count)
{
    m_sink.append(m_input.data(), count);
    m_input.release(count);
}

void ORVTextRtfStripperPrivate::endLine()
{
    m_sink.append('\n');
    m_spaceOwed = false;
}
