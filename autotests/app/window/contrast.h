/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef CONTRAST_H
#define CONTRAST_H

#include <QtGlobal>

class QImage;

/**
 * The contrast between the colour that most of a picture has and the one that stands out most from
 * it, from 1 to 21; letters that everybody can read have 7.
 */
qreal contrast(const QImage &picture);

#endif
