// SPDX-License-Identifier: MIT
#include <ZarnCore/io/ZarnNativeExporter.h>

#include <ZarnCore/ZarnAssert.h>
#include <ZarnCore/io/native/ScoreFields.h>

#include <filesystem/FileHandle.h>

namespace zarn::io {

namespace {

void fill(rapidjson::StringBuffer &buffer, const ScoreModel &model)
{
    try {
        if (auto misfit = native::findMisfit(model); !misfit.reason.empty())
            throw misfit;
        native::DocumentWriter writer(buffer);
        native::writeScore(writer, model);
        buffer.Put('\n');
    } catch (const native::Misfit &misfit) {
        ZARN_RAISE_IN("zarn::io::NativeExporter::write",
                      misfit.pointer + ": cannot be saved: " + misfit.reason);
    }
}

} // namespace

NativeExporter::~NativeExporter() = default;

std::string NativeExporter::description() const
{
    return "Zarn score";
}

std::list<std::string> NativeExporter::extensions() const
{
    return {"zarn"};
}

void NativeExporter::write(const ScoreModel &model, filesystem::FileHandle &handle) const
{
    rapidjson::StringBuffer buffer;
    fill(buffer, model);
    handle.writeBlock(buffer.GetString(), static_cast<std::int64_t>(buffer.GetSize()));
    if (!handle.close())
        ZARN_RAISE_IN("zarn::io::NativeExporter::write", handle.errorText());
}

std::string NativeExporter::toText(const ScoreModel &model) const
{
    rapidjson::StringBuffer buffer;
    fill(buffer, model);
    return {buffer.GetString(), buffer.GetSize()};
}

} // namespace zarn::io
