/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include "windowcommand.h"

#include "mainwindow.h"
#include "windowstate.h"

#include <QApplication>

int openWindow()
{
    MainWindow window;
    WindowState::restore(window);
    window.show();
    const int status = QApplication::exec();
    WindowState::save(window);
    return status;
}
