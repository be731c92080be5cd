#ifndef ORVRTF_DIFFCOMMAND_H
#define ORVRTF_DIFFCOMMAND_H

#include "Options.h"

/*! Carries out the command Diff of \a options. Needs a QGuiApplication. */
ExitCode diff(const Options& options);

#endif
