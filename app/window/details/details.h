/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef DETAILS_H
#define DETAILS_H

#include "accountlink.h"
#include "contentarea.h"

#include <QHash>

class LineLabel;
class LinkLabel;
class QAction;
class QGridLayout;
class QLabel;
class SearchWords;

/** The details of one account: picture, name, remarks, and fields below. */
class Details : public ContentArea
{
    Q_OBJECT

public:
    /** @param pictureSize the width and height of the picture */
    explicit Details(int pictureSize, QWidget *parent = nullptr);

    QSize pictureSize() const;

    /** Shows @p picture, which screen readers call @p name; without one, the name itself. */
    void setPicture(const QPixmap &picture, const QString &name);

    void setTitle(const QString &title);

    /** Shows a line for each of @p remarks below the title. */
    void setRemarks(const QStringList &remarks);

    /** A field for text on one line. Text that does not fit is elided. */
    LineLabel *addField(const QString &title);

    /** A field for links to accounts. */
    LinkLabel *addLinks(const QString &title);

    /** Adds buttons below the fields, one for each action. */
    void addButtons(const QList<QAction *> &actions);

    /** Shows @p text in @p field, or a dash when there is none. */
    static void setText(LineLabel &field, const QString &text);

    /** Marks the titles of the fields in which words of @p search are now. */
    void markHits(const SearchWords &search);

    /** Shows or hides a field with its title. */
    void setFieldVisible(LineLabel &field, bool visible);

Q_SIGNALS:
    void followed(const AccountLink &link);

private:
    void addField(const QString &title, QLabel *field);

    QLabel *m_picture = nullptr;
    LineLabel *m_title = nullptr;
    QLabel *m_remarks = nullptr;
    QWidget *m_fields = nullptr;
    QGridLayout *m_fieldsLayout = nullptr;
    QHash<const QLabel *, QLabel *> m_titles;
};

#endif
