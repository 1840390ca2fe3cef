#pragma once

class wxMenu;
class wxWindow;

/// A menu that opens each dialog of the library, and those of the toolkit, for the window.
wxMenu* NewDialogMenu(wxWindow& window);
