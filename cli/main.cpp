#include "core/VdSelectParser.h"

#include <iostream>
#include <iterator>

int main(int, char**)
{
    std::string text((std::istreambuf_iterator<char>(std::cin)), std::istreambuf_iterator<char>());
    vd::TVdSelectParser parser;
    try {
        parser.SetExpression(text);
    } catch (const std::exception& e) {
        std::cerr << e.what() << "\n";
        return 1;
    }
    std::cout << parser.GetExpression();
    return 0;
}
