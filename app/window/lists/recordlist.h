/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef RECORDLIST_H
#define RECORDLIST_H

#include <QWidget>

#include <functional>

class KMessageWidget;
class QComboBox;
class QLabel;
class QPushButton;
class QSettings;
class QStackedWidget;
class RecordModel;
class RecordView;
class RowActions;
class SearchField;

/** A list of accounts to choose from, with a search, filters and a line that counts. */
class RecordList : public QWidget
{
    Q_OBJECT

public:
    struct Texts {
        /** The name of the list, for screen readers and exported files. */
        QString name;
        /** The filters of the model, the first one for all. */
        QStringList filters;
        /** Why no record is shown. */
        std::function<QString()> noMatch;
        /** The text for no records at all; when it is empty, an empty list is shown. */
        std::function<QString()> none = [] { return QString(); };
        /** How many records are shown, and of how many. */
        std::function<QString(int shown, int total)> count;
    };

    /** @param name the object name, under which the state is kept in settings */
    RecordList(const QString &name, RecordModel *model, const Texts &texts, QWidget *parent = nullptr);

    RecordView *view() const;
    RowActions *rowActions() const;

    /** Shows @p text above the list; nothing when it is empty. */
    void setError(const QString &text);

    /** Shows the record of that name, without search and filter if they hide it; false when there is none. */
    bool showRecord(const QString &name);

    void focusList();
    void focusSearch();

    void saveState(QSettings &settings) const;
    void restoreState(const QSettings &settings);

private:
    QWidget *createNoMatch();
    void arrange();
    void search();
    void clearSearch();
    void goToList();
    void updateCount();
    QString settingsKey(const char *name) const;

    RecordModel *const m_model;
    const Texts m_texts;
    KMessageWidget *const m_error;
    QComboBox *const m_filterComboBox;
    SearchField *const m_searchField;
    RecordView *const m_view;
    RowActions *const m_rowActions;
    QLabel *const m_count;
    QLabel *const m_noMatch;
    QPushButton *const m_showAll;
    QStackedWidget *const m_stack;
};

#endif
