#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

// Gives a fuzz target every file of a folder, in the place of the fuzzer's own main(): replay FOLDER

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char* argv[]) {
    int replayed = 0;
    for (const auto& file : std::filesystem::directory_iterator{argc == 2 ? argv[1] : ""}) {
        std::ifstream in{file.path(), std::ios::binary};
        const std::string bytes{std::istreambuf_iterator<char>{in}, {}};
        std::cout << file.path().filename().string() << std::endl; // before it, should it be the end
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
        ++replayed;
    }
    return replayed > 0 ? 0 : 1;
}
