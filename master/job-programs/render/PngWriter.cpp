#include "master/job-programs/render/PngWriter.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include <png.h>

std::string WritePng(const Picture& picture, const std::string& fileName)
{
    const std::string temporary = fileName + ".part";
    png_image         image;
    std::memset(&image, 0, sizeof image);
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(picture.width);
    image.height = static_cast<png_uint_32>(picture.height);
    image.format = PNG_FORMAT_RGB;
    if (!png_image_write_to_file(&image, temporary.c_str(), 0, picture.bytes.data(), 0, nullptr))
    {
        const std::string why = image.message;
        std::remove(temporary.c_str());
        return "Cannot write " + fileName + ": " + why;
    }
    if (std::rename(temporary.c_str(), fileName.c_str()) != 0)
    {
        return "Cannot write " + fileName + ": " + std::strerror(errno);
    }
    return std::string();
}
