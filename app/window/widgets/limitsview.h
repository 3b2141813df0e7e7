/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef LIMITSVIEW_H
#define LIMITSVIEW_H

#include "limitrule.h"

#include <LimitsParser>

#include <QWidget>

class KMessageWidget;
class QLabel;
class Table;

/** The limits that apply to one account. */
class LimitsView : public QWidget
{
    Q_OBJECT

public:
    explicit LimitsView(QWidget *parent = nullptr);

    /** Shows nothing. */
    void clear();

    /**
     * Shows what applies to a user or a group.
     *
     * @param error why @p limits is not complete; empty when it is
     */
    template<typename Account>
    void show(const Account &account, const LimitsParser &limits, const QString &error)
    {
        QVector<Limit> found;
        const QStringList items = LimitsParser::availableItems();
        for (const QString &item : items) {
            const QString domain = LimitRule::domain(limits, account, item);
            if (!domain.isNull()) {
                found.append({item, limits.findField(domain, item), domain});
            }
        }
        show(found, error);
    }

private:
    struct Limit {
        QString item;
        QVariant value;
        QString domain;
    };

    void show(const QVector<Limit> &limits, const QString &error);

    KMessageWidget *const m_error;
    QLabel *const m_none;
    Table *const m_table;
    QLabel *const m_title;
};

#endif
