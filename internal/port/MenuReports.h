#pragma once

namespace internal
{
/// Ends what the port would do for ever with an item of a menu that was chosen before its menu was
/// on the screen, as keys do: GTK 3 then waits for the item to be shown, so as to report it to
/// assistive technology, once more each time, and never stops waiting. When two such waits end in
/// one showing while the program is too busy for reports, GTK ends the program. Once, when the port
/// has started; main thread.
void EndOldMenuReports();
} // namespace internal
