/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LIMITSMAP_H
#define LIMITSMAP_H

#include <limitsparser.h>

/** The catalogue of limits as seen by code that is compiled in the way under test. */
const QMap<QString, LimitsParser::FieldDescriptor> &limitsMap();

#endif
