#pragma once

// The demo's program: reads the command line, opens the database and then prints the
// statement, renders the window to a picture, or shows it.

namespace vd {

int RunDemo(int argc, char* argv[]);

} // namespace vd
