/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef DETAILS_H
#define DETAILS_H

#include "contentarea.h"

class QFormLayout;
class QHBoxLayout;
class QLabel;

/** What is known of one account: picture, name, marks, and fields of text below. */
class Details : public ContentArea
{
    Q_OBJECT

public:
    /** @param pictureSize the width and height of the picture */
    explicit Details(int pictureSize, QWidget *parent = nullptr);

    QSize pictureSize() const;

    void setPicture(const QPixmap &picture);

    /** Shows @p sign in the place of the picture, or @p text if there is no such icon. */
    void setNoPicture(const QIcon &sign, const QString &text);

    void setTitle(const QString &title);

    /** A label beside the picture to show and hide. */
    QLabel *addMark(const QString &text);

    /** A field for text in one line. What does not fit is cut short. */
    QLabel *addField(const QString &title);

    /** A field for text in as many lines as it takes. */
    QLabel *addLongField(const QString &title);

    /** Shows @p text in @p field, or a dash when there is none. */
    static void setText(QLabel &field, const QString &text);

private:
    QLabel *addField(const QString &title, QLabel *field);

    QLabel *m_picture = nullptr;
    QLabel *m_title = nullptr;
    QHBoxLayout *m_marksLayout = nullptr;
    QFormLayout *m_fieldsLayout = nullptr;
};

#endif
