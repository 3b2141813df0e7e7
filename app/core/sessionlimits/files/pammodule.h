/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef PAMMODULE_H
#define PAMMODULE_H

#include <QByteArray>

namespace PamLimits
{
/** How the pam_limits of this machine reads its files. Later rules are the same for all versions. */
struct Module {
    /** How many bytes it reads of a line at a time; 0 for no limit. The rest counts as further lines. */
    int lineLength = 0;
    /** Whether a vertical tab, form feed or carriage return separates columns, as spaces and tabs do. */
    bool anySpaceSeparates = false;
    /** Whether the value goes to the end of the line. Otherwise what follows the fourth column is ignored. */
    bool valueIsRest = true;
    /** Whether a session fails for a file that does not exist. */
    bool needsFiles = false;
    /** Whether limits without a rule are set to those of the first process. */
    bool resetsOthers = false;

    /** Linux-PAM 1.5, as in Debian 12. */
    static Module version1_5();

    /** Linux-PAM 1.7, as in Debian 13. */
    static Module version1_7();

    /** The installed one, recognized by the functions that it calls; the latest when there is none. */
    static Module installed();
};
}

#endif
