#include "master/job-programs/render/Tracer.h"

#include <algorithm>

namespace
{

constexpr int    kDepth = 4;      // reflections followed
constexpr double kLift = 1e-4;    // length: how far from a surface a new ray starts
constexpr double kZoom = 1.6;     // distance of the picture plane, in half picture heights
constexpr double kAmbient = 0.22; // share of the sky's light that reaches every surface
constexpr double kFog = 0.035;    // per length: how fast the floor fades into the sky

/// A small generator of random numbers; its quality is plenty for a picture's noise.
class Random
{
public:
    explicit Random(uint32_t seed) : m_State(seed * 747796405u + 2891336453u) {}
    /// From 0 to below 1.
    double Next()
    {
        m_State = m_State * 747796405u + 2891336453u;
        const uint32_t word = ((m_State >> ((m_State >> 28u) + 4u)) ^ m_State) * 277803737u;
        return ((word >> 22u) ^ word) / 4294967296.0;
    }

private:
    uint32_t m_State;
};

/// A point in the ball of radius 1.
Vector InBall(Random& random)
{
    for (;;)
    {
        const Vector point = {2 * random.Next() - 1, 2 * random.Next() - 1, 2 * random.Next() - 1};
        if (Dot(point, point) <= 1)
        {
            return point;
        }
    }
}

/// Light that comes straight from one point of the lamp; a random point makes shadows soft.
Vector LampLight(const Scene& scene, const Ray& view, const Hit& hit, Random& random)
{
    const Vector origin = hit.point + hit.normal * kLift;
    const Vector toLamp = scene.lamp + InBall(random) * scene.lampRadius - origin;
    const double distance = std::sqrt(Dot(toLamp, toLamp));
    const Vector direction = toLamp * (1 / distance);
    const double slope = Dot(direction, hit.normal);
    if (slope <= 0 || scene.IsBlocked({origin, direction}, distance))
    {
        return {};
    }
    const double shine = std::max(0.0, Dot(Mirror(view.direction, hit.normal), direction));
    const double highlight = hit.material.gloss * std::pow(shine, 60);
    return hit.material.colour * (0.85 * slope) + Vector{1, 1, 1} * highlight;
}

Vector Light(const Scene& scene, const Ray& ray, int depth, Random& random)
{
    Hit hit;
    if (!scene.Nearest(ray, hit))
    {
        return Scene::Sky(ray.direction);
    }
    const Vector ambient = hit.material.colour * Scene::Sky(hit.normal) * kAmbient;
    Vector       light = ambient + LampLight(scene, ray, hit, random);
    if (hit.material.mirror > 0 && depth < kDepth)
    {
        const Ray reflected = {hit.point + hit.normal * kLift, Mirror(ray.direction, hit.normal)};
        light = Mix(light, Light(scene, reflected, depth + 1, random), hit.material.mirror);
    }
    const double fog = 1 - std::exp(-kFog * std::max(0.0, hit.distance - 6));
    return Mix(light, Scene::Sky(ray.direction), fog);
}

/// Turns picture coordinates into rays from the eye.
class Camera
{
public:
    Camera(const Scene& scene, int width, int height)
        : m_Eye(scene.eye), m_Width(width), m_Height(height)
    {
        m_Forward = Normal(scene.target - scene.eye);
        m_Right = Normal(Cross({0, 1, 0}, m_Forward));
        m_Up = Cross(m_Forward, m_Right);
    }
    Ray Through(double x, double y) const
    {
        const double scale = 2.0 / m_Height;
        const double right = (x - m_Width / 2.0) * scale;
        const double up = (m_Height / 2.0 - y) * scale;
        return {m_Eye, Normal(m_Forward * kZoom + m_Right * right + m_Up * up)};
    }

private:
    Vector m_Eye;
    Vector m_Forward;
    Vector m_Right;
    Vector m_Up;
    int    m_Width;
    int    m_Height;
};

uint8_t ToByte(double light)
{
    constexpr double kGamma = 1 / 2.2;
    const double     value = std::pow(std::clamp(light, 0.0, 1.0), kGamma);
    return static_cast<uint8_t>(value * 255 + 0.5);
}

Vector Pixel(const Scene& scene, const Camera& camera, int x, int y, int samples, Random& random)
{
    Vector sum;
    for (int i = 0; i < samples; ++i)
    {
        const Ray ray = camera.Through(x + random.Next(), y + random.Next());
        sum = sum + Light(scene, ray, 0, random);
    }
    return sum * (1.0 / samples);
}

} // namespace

Picture Trace(const Scene& scene, int width, int height, int samples, uint32_t seed)
{
    Picture picture;
    picture.width = width;
    picture.height = height;
    picture.bytes.reserve(static_cast<size_t>(width) * static_cast<size_t>(height) * 3);
    const Camera camera(scene, width, height);
    for (int y = 0; y < height; ++y)
    {
        for (int x = 0; x < width; ++x)
        {
            Random       random(seed * 2654435761u + static_cast<uint32_t>(y * width + x));
            const Vector light = Pixel(scene, camera, x, y, samples, random);
            picture.bytes.insert(picture.bytes.end(),
                                 {ToByte(light.x), ToByte(light.y), ToByte(light.z)});
        }
    }
    return picture;
}
