#include "VdDemoRun.h"

int main(int argc, char* argv[]) { return vd::RunDemo(argc, argv); }
