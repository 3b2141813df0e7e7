/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef CONTRAST_H
#define CONTRAST_H

#include <QtGlobal>

class QImage;

/**
 * The contrast, from 1 to 21, between the most frequent colour of a picture and the one that
 * differs most from it. Letters that everybody can read have 7.
 */
qreal contrast(const QImage &picture);

#endif
