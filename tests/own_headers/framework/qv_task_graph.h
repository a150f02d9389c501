#pragma once

#include <string>

class QVTaskGraphConfig {
public:
    int addInputStream(std::string) { return 0; }
    int addOutputStream(std::string) { return 0; }
};
