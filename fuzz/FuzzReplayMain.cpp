// Runs the fuzz entry point over the files (or folders of files) named on the
// command line, so the fuzz code is built and exercised without libFuzzer.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size);

namespace {

void replayFile(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    const std::vector<uint8_t> bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
}

} // namespace

int main(int argc, char** argv)
{
    int replayed = 0;
    for (int index = 1; index < argc; ++index) {
        const std::filesystem::path argument(argv[index]);
        std::vector<std::filesystem::path> files;
        if (std::filesystem::is_directory(argument)) {
            for (const auto& entry : std::filesystem::directory_iterator(argument))
                if (entry.is_regular_file())
                    files.push_back(entry.path());
        } else {
            files.push_back(argument);
        }
        for (const auto& file : files) {
            replayFile(file);
            ++replayed;
        }
    }
    std::printf("replayed %d input(s)\n", replayed);
    return replayed > 0 ? 0 : 1;
}
