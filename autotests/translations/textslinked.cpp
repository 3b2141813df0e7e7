/*
    SPDX-FileCopyrightText: 2026 The Ormel Users contributors
    SPDX-License-Identifier: LGPL-2.1-or-later
*/

#include <QApplication>

extern "C" void printTexts();

// The library is loaded before the application object exists.
int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    printTexts();
    return 0;
}
