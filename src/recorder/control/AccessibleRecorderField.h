#pragma once

namespace tarragon {

// Lets screen readers read the fields of recorders: the name is what the recorder is for and what it shows, the value
// is what it shows, and pressing begins a recording. Once is enough.
void makeRecorderFieldsAccessible();

} // namespace tarragon
