// Runs every file of the given directories through a fuzzer's entry, once: what was found stays found, without a
// fuzzing compiler.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

namespace
{
void replay(const std::filesystem::path &path)
{
    std::ifstream file(path, std::ios::binary);
    const std::vector<char> input{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    // To the error stream, which is not buffered: the last name is that of the input that ended the process.
    std::fprintf(stderr, "%s: %zu bytes\n", path.filename().c_str(), input.size());
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(input.data()), input.size());
}
}

int main(int argc, char **argv)
{
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s CORPUS_DIRECTORY...\n", argv[0]);
        return 2;
    }
    LLVMFuzzerInitialize(&argc, &argv);
    for (int i = 1; i < argc; ++i) {
        int count = 0;
        for (const auto &entry : std::filesystem::directory_iterator(argv[i])) {
            replay(entry.path());
            ++count;
        }
        if (count == 0) {
            std::fprintf(stderr, "%s holds no inputs\n", argv[i]);
            return 1;
        }
    }
    return 0;
}
