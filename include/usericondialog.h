/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#ifndef USERICONDIALOG_H
#define USERICONDIALOG_H

#include "ormelusersqt_export.h"

#include <QDialog>
#include <QImage>
#include <QPixmap>

class IconSelectWidget;

namespace Ui
{
class UserIconDialog;
}

/**
 * @class UserIconDialog usericondialog.h <UserIconDialog>
 *
 * Lets the operator cut a square icon out of a picture.
 *
 * @code
 * UserIconDialog dialog(this);
 * dialog.setPixmap(QPixmap(QDir::homePath() + QStringLiteral("/.face")));
 * if (dialog.exec() == QDialog::Accepted && !dialog.selectedPixmap().isNull()) {
 *     useIcon(dialog.selectedPixmap());
 * }
 * @endcode
 *
 * exec() runs an event loop of its own. To do without one, open the dialog and wait for its signal:
 *
 * @code
 * auto *dialog = new UserIconDialog(this);
 * dialog->setAttribute(Qt::WA_DeleteOnClose);
 * connect(dialog, &QDialog::finished, this, [=](int result) {
 *     if (result == QDialog::Accepted && !dialog->selectedPixmap().isNull()) {
 *         useIcon(dialog->selectedPixmap());
 *     }
 * });
 * dialog->open();
 * @endcode
 *
 * The picture comes from the caller, from a file or from the clipboard. It can be turned and mirrored, and
 * a square is marked in it with the mouse. The dialog starts without a picture and with Ok disabled. Ok is
 * enabled as soon as a picture was set or chosen, and stays enabled.
 *
 * A file that cannot be read or is refused counts as a chosen picture, too. It shows nothing and makes
 * selectedPixmap() null. No file must be able to stop the program, so these are refused:
 * - more than 2^28 pixels: a small file can claim a size that no memory holds;
 * - more than 64 MiB of unpacked SVG text, for the same reason;
 * - anything but a regular file, since reading a pipe or a device may never end.
 *
 * Files and style sheets that an SVG picture refers to are not opened; they are missing in the picture.
 *
 * The file dialog starts in UserUtils::userIconPath() each time. A clipboard without an image is
 * ignored.
 *
 * The dialog sets no modality. Like all widgets it belongs to the GUI thread.
 *
 * @see UserUtils::getRandomUserIcon()
 */
class ORMELUSERSQT_EXPORT UserIconDialog : public QDialog
{
    Q_OBJECT

public:
    /** A dialog without a picture, with Ok disabled. It belongs to @p parent, if there is one. */
    explicit UserIconDialog(QWidget *parent = nullptr);
    ~UserIconDialog() override;

    /**
     * Shows @p pixmap with the largest square in its middle selected, and enables Ok; null shows nothing.
     *
     * Keeps one copy of it as an image, four bytes for each of its pixels. Its size is not limited.
     *
     * @see selectedPixmap()
     */
    void setPixmap(const QPixmap &pixmap);

    /**
     * @return the selected square of the picture, turned and mirrored as shown, at the picture's own
     * resolution. Pixels that rounding adds beyond the picture's edges are transparent, black, or the
     * first colour of the picture's colour table. A square smaller than one pixel of the picture gives
     * the whole picture, even when that is not square.
     *
     * Can be null although Ok was enabled: when the picture is null, when it is so long and thin that
     * nothing of it is shown, and when the upper edge of the square was dragged below the lower one.
     *
     * Copies the square out of the picture on each call.
     *
     * @see setPixmap()
     */
    QPixmap selectedPixmap() const;

public Q_SLOTS:
    /** Lets the operator choose a file and shows the picture in it. */
    void on_fileButton_clicked(bool checked); // clazy:exclude=connect-by-name
    /** Shows the image on the clipboard, if there is one. */
    void on_clipboardButton_clicked(); // clazy:exclude=connect-by-name

private:
    ORMELUSERSQT_NO_EXPORT void showImage(const QImage &image);

    Ui::UserIconDialog *ui;
    IconSelectWidget *m_iconWidget;
};

#endif
