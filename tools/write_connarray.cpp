// Writes connarray.dat, the neighbour table, from the board's layout: each
// hexagon's neighbours from the highest number down, so that the path walk
// heads for hexagon 100 first.
//   write_connarray data/connarray.dat
#include <fstream>
#include <iostream>

#include "engine/connarray.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: write_connarray FILE\n";
        return 2;
    }
    std::ofstream out(argv[1], std::ios::binary);
    out << fendle::connarrayText(fendle::layoutConnarray());
    return out.good() ? 0 : 1;
}
