#include "ORV.h"

const char* ORV::OrvellineMarkupRtfMimeType = "application/x-orvelline-markup-rtf";

QStringList ORV::rtfMimeTypes()
{
    QStringList types;
    types << QLatin1String("text/rtf") << QLatin1String("application/rtf") << QLatin1String("text/richtext");
#if defined(Q_OS_WIN)
    // Qt's name for a clipboard format that Windows identifies by name.
    types << QLatin1String("application/x-qt-windows-mime;value=\"Rich Text Format\"");
#elif defined(Q_OS_MAC)
    types << QLatin1String("public.rtf");
#endif
    return types;
}
