#include "ORVRtfCharFormatCache_p.h"

bool ORVRtfCharFormatCache::recall(QTextCharFormat& format, int id, quint64 value)
{
    for (const Step& step : stepsOf(id).steps) {
        if (step.id == id && step.value == value && step.before == format) {
            format = step.after;
            return true;
        }
    }
    return false;
}

void ORVRtfCharFormatCache::remember(const QTextCharFormat& before, int id, quint64 value,
                                     const QTextCharFormat& after)
{
    Steps& known = stepsOf(id);
    Step& step = known.steps[known.next];
    known.next = (known.next + 1) % known.steps.size();
    step.id = id;
    step.value = value;
    step.before = before;
    step.after = after;
    // Comparing has Qt work out the hash, which every copy then brings along.
    const bool isUnchanged = step.after == step.before;
    Q_UNUSED(isUnchanged)
}
