#include "ORVTextListLevel.h"

ORVTextListLevel::ORVTextListLevel()
    : m_kind(Decimal), m_indent(0), m_firstLinePosition(0), m_start(1), m_follow(Tab), m_justification(Left)
{
}

bool ORVTextListLevel::operator==(const ORVTextListLevel& other) const
{
    return m_kind == other.m_kind && m_indent == other.m_indent
        && m_firstLinePosition == other.m_firstLinePosition && m_start == other.m_start
        && m_follow == other.m_follow && m_justification == other.m_justification && m_text == other.m_text;
}
