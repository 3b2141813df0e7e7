/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "limitsmap.h"

const QMap<QString, LimitsParser::FieldDescriptor> &limitsMap()
{
    return LimitsParser::m_fieldDescriptionsMap;
}
