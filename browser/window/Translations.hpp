#pragma once

class QLocale;

/// Has the application speak the language of a locale, so far as there are catalogues of it: of
/// Qt, of the library and of the window. Must come before the first text. What is printed on the
/// console is for scripts and stays English.
void install_translations(const QLocale& locale);
