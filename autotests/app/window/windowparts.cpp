/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "windowparts.h"

#include "accountstore.h"
#include "patience.h"

#include <KSqueezedTextLabel>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QTextDocumentFragment>
#include <QTreeView>

namespace
{
template<typename Widget>
QList<Widget *> visibleChildren(const QWidget &window)
{
    QList<Widget *> visible;
    const QList<Widget *> all = window.findChildren<Widget *>();
    std::copy_if(
        all.begin(), all.end(), std::back_inserter(visible), [](const Widget *widget) { return widget->isVisible(); });
    return visible;
}

/** The letter with the mnemonic mark is drawn as a separate text, which keeps letters from being joined. */
int drawnWidth(const QWidget &widget, const QString &text)
{
    const QStringList parts = text.split(QLatin1Char('&'));
    const QString &last = parts.constLast();
    int width = widget.fontMetrics().horizontalAdvance(parts.constFirst());
    if (parts.size() > 1) {
        width += widget.fontMetrics().horizontalAdvance(last.mid(0, 1))
            + widget.fontMetrics().horizontalAdvance(last.mid(1));
    }
    return width;
}

bool isClipped(const QLabel &label)
{
    if (qobject_cast<const KSqueezedTextLabel *>(&label) || label.text().isEmpty()) {
        return false;
    }
    if (label.wordWrap()) {
        return label.heightForWidth(label.width()) > label.height();
    }
    return label.sizeHint().width() > label.width() || label.sizeHint().height() > label.height()
        || (label.buddy() && drawnWidth(label, label.text()) > label.width());
}

void addClippedTitles(QStringList &clipped, const QTreeView &view)
{
    const QHeaderView &header = *view.header();
    for (int i = 0; i < header.count(); ++i) {
        // Parts outside the view can be scrolled to.
        if (!header.isSectionHidden(i) && header.sectionSize(i) < header.sectionSizeHint(i)) {
            clipped.append(view.accessibleName() + QLatin1Char(' ')
                           + header.model()->headerData(i, Qt::Horizontal).toString());
        }
    }
}
}

bool readAccounts(AccountStore &store)
{
    QSignalSpy ended(&store, &AccountStore::ended);
    store.read();
    return ended.isValid() && ended.wait(patience);
}

QString fieldText(const QWidget &page, const char *title)
{
    const QList<QLabel *> labels = page.findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        if (label->text() != QLatin1String(title) || !label->buddy()) {
            continue;
        }
        if (const auto *line = qobject_cast<const KSqueezedTextLabel *>(label->buddy())) {
            return line->fullText();
        }
        return shownText(*qobject_cast<const QLabel *>(label->buddy()));
    }
    qFatal("The page has no %s", title);
}

QString shownText(const QLabel &label)
{
    if (label.textFormat() != Qt::RichText) {
        return label.text();
    }
    QString text = QTextDocumentFragment::fromHtml(label.text()).toPlainText();
    return text.replace(QChar::Nbsp, QLatin1Char(' '));
}

QLabel *labelOf(const QWidget &buddy)
{
    const QList<QLabel *> labels = buddy.window()->findChildren<QLabel *>();
    const auto found =
        std::find_if(labels.begin(), labels.end(), [&buddy](const QLabel *label) { return label->buddy() == &buddy; });
    if (found == labels.end()) {
        qFatal("Nothing leads to %s", qPrintable(buddy.objectName()));
    }
    return *found;
}

QStringList shownRows(const QAbstractItemView &view)
{
    const QAbstractItemModel &model = *view.model();
    const auto *tree = qobject_cast<const QTreeView *>(&view);
    QStringList rows;
    for (int row = 0; row < model.rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < model.columnCount(); ++column) {
            if (!tree || !tree->isColumnHidden(column)) {
                cells.append(model.index(row, column).data().toString());
            }
        }
        rows.append(cells.join(QLatin1Char('|')));
    }
    return rows;
}

QStringList toolTips(const QAbstractItemView &view, int row)
{
    QStringList texts;
    for (int column = 0; column < view.model()->columnCount(); ++column) {
        texts.append(view.model()->index(row, column).data(Qt::ToolTipRole).toString());
    }
    return texts;
}

QStringList clippedTexts(const QWidget &window)
{
    QStringList clipped;
    const auto labels = visibleChildren<QLabel>(window);
    for (const QLabel *label : labels) {
        if (isClipped(*label)) {
            clipped.append(label->text());
        }
    }
    const auto buttons = visibleChildren<QAbstractButton>(window);
    for (const QAbstractButton *button : buttons) {
        const QSize needed = button->minimumSizeHint();
        if (!button->text().isEmpty() && (button->width() < needed.width() || button->height() < needed.height())) {
            clipped.append(button->text());
        }
    }
    const auto comboBoxes = visibleChildren<QComboBox>(window);
    for (const QComboBox *comboBox : comboBoxes) {
        if (comboBox->width() < comboBox->sizeHint().width()) {
            clipped.append(comboBox->currentText());
        }
    }
    const auto boxes = visibleChildren<QGroupBox>(window);
    for (const QGroupBox *box : boxes) {
        if (box->width() < box->minimumSizeHint().width()) {
            clipped.append(box->title());
        }
    }
    const auto edits = visibleChildren<QLineEdit>(window);
    for (const QLineEdit *edit : edits) {
        const int frame = edit->sizeHint().width() - 17 * edit->fontMetrics().horizontalAdvance(QLatin1Char('x'));
        const int needed = edit->fontMetrics().horizontalAdvance(edit->placeholderText()) + frame;
        if (!edit->placeholderText().isEmpty() && edit->width() < needed) {
            clipped.append(edit->placeholderText());
        }
    }
    const auto views = visibleChildren<QTreeView>(window);
    for (const QTreeView *view : views) {
        addClippedTitles(clipped, *view);
    }
    return clipped;
}
