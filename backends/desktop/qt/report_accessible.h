#pragma once

namespace paperway::qt {

/// Lets screen readers read the text of report views, which they would otherwise know by name
/// alone.
void makeReportsReadable();

}  // namespace paperway::qt
