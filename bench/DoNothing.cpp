#include <iostream>

int main() {
  std::cout << "nothing\n";
}
