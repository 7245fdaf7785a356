// Edits of CBinaryData objects that share holders, replayed on plain strings: every
// copy, assignment, append, indexed write, release and text form must leave each
// object holding exactly the bytes of its string, whoever else shared its holder.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <string>

#include "FuzzSupport.h"
#include "orvexxml/data/BinaryData.h"

using namespace OrvexFuzz;

namespace {

constexpr int kSlots = 3;

void Same(const CBinaryData& data, const std::string& model)
{
    if (data.GetLength() != model.size() || data.GetString() != model)
        Fail("the bytes differ from the plain string", data.GetString(), model);
    Check(data.GetCapacity() >= data.GetLength(), "capacity below length");
    if (!model.empty()) Check(std::memcmp(data.GetData(), model.data(), model.size()) == 0, "GetData");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* input, std::size_t size)
{
    if (size > 8192) return 0;
    CByteCursor cursor(input, size);
    CBinaryData data[kSlots];
    std::string model[kSlots];
    for (int step = 0; step < 64 && !cursor.Empty(); ++step) {
        const std::uint8_t op = cursor.Byte();
        const int a = (op >> 4) % kSlots, b = (op >> 6) % kSlots;
        switch (op % 16) {
            case 0: {
                const std::string text = cursor.Until('\x01');
                data[a] = CBinaryData(text.c_str());
                model[a] = text.c_str();
                break;
            }
            case 1:
                data[a] = data[b];
                model[a] = model[b];
                break;
            case 2: {
                CBinaryData copy(data[b]);
                data[a] = copy;
                model[a] = model[b];
                break;
            }
            case 3: {
                std::string bytes = cursor.Until('\x01');
                data[a].SetBuffer(reinterpret_cast<unsigned char*>(&bytes[0]), static_cast<unsigned long>(bytes.size()));
                model[a] = bytes;
                break;
            }
            case 4: {
                const unsigned long length = cursor.Byte();
                data[a].SetBuffer(nullptr, length);
                model[a].assign(length, '\0');
                break;
            }
            case 5: {
                std::string bytes = cursor.Until('\x01');
                data[a].Append(reinterpret_cast<unsigned char*>(&bytes[0]), static_cast<unsigned long>(bytes.size()));
                model[a] += bytes;
                break;
            }
            case 6: {
                const std::string text = cursor.Until('\x01');
                data[a].Append(text.c_str());
                model[a] += text.c_str();
                break;
            }
            case 7:
                // Appending an object to itself doubles it: a few dozen steps would
                // ask for gigabytes, and even a megabyte, hex-encoded at every later
                // step, makes one input run for seconds without telling more about
                // the edits than 64 KiB does.
                if (model[a].size() + model[b].size() > (1u << 16)) break;
                data[a].Append(data[b]);
                model[a] += model[b];
                break;
            case 8: {
                const std::uint8_t byte = cursor.Byte();
                data[a].Append(static_cast<unsigned char>(byte));
                model[a] += static_cast<char>(byte);
                break;
            }
            case 9: {
                const unsigned index = cursor.Byte();
                const std::uint8_t byte = cursor.Byte();
                try {
                    data[a][index] = byte;
                    Check(index < model[a].size(), "an index beyond the length was accepted");
                    model[a][index] = static_cast<char>(byte);
                } catch (const COrvexException&) {
                    Check(index >= model[a].size(), "an index inside the length was refused");
                }
                break;
            }
            case 10: {
                const unsigned index = cursor.Byte();
                const CBinaryData& constant = data[a];
                try {
                    Check(constant[index] == static_cast<unsigned char>(model[a].at(index)), "const operator[]");
                } catch (const COrvexException&) {
                    Check(index >= model[a].size(), "a const index inside the length was refused");
                } catch (const std::out_of_range&) {
                    Fail("an index beyond the length was accepted", "", "");
                }
                break;
            }
            case 11: {
                unsigned char* released = nullptr;
                try {
                    released = data[a].ReleaseData();
                } catch (const COrvexException&) {
                    break;  // a shared holder keeps its data
                }
                if (released) Check(std::memcmp(released, model[a].data(), model[a].size()) == 0, "ReleaseData");
                delete[] released;
                model[a].clear();
                break;
            }
            case 12:
                data[a].Clear();
                model[a].clear();
                break;
            case 13: {
                CBinaryData text;
                text.SetAsHexString(data[a].GetAsHexString().c_str());
                Same(text, model[a]);
                text.SetAsBase64(data[a].GetAsBase64().c_str());
                Same(text, model[a]);
                break;
            }
            case 14:
                if (data[a] == data[b]) Check(model[a] == model[b], "equal objects with different bytes");
                if (!model[a].empty() && model[a] == model[b]) Check(data[a] == data[b], "equal bytes compare unequal");
                break;
            default: {
                CBinaryData original(data[a]);
                try {
                    CBinaryData shared = data[a].CompressData((op & 0x40) ? Compression_GZIP : Compression_ZLIB);
                    Check(shared == data[a], "the result does not share the compressed bytes");
                    model[a] = data[a].GetString();
                } catch (const COrvexException&) {
                    Same(data[a], model[a]);
                }
                Same(original, original.GetString());
                break;
            }
        }
        for (int i = 0; i < kSlots; ++i) Same(data[i], model[i]);
    }
    return 0;
}
