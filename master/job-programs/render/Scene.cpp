#include "master/job-programs/render/Scene.h"

#include <cstring>

namespace
{

constexpr double kTouch = 1e-6; // length: nearer hits are the surface that the ray starts from
constexpr double kTau = 6.283185307179586;

const Vector kColours[] = {{0.90, 0.20, 0.15}, {0.95, 0.60, 0.10}, {0.30, 0.68, 0.25},
                           {0.15, 0.42, 0.85}, {0.55, 0.28, 0.78}, {0.85, 0.85, 0.85}};

/// Distance along the ray to the sphere; negative when it is missed.
double Reach(const Sphere& sphere, const Ray& ray)
{
    const Vector toCentre = sphere.centre - ray.origin;
    const double along = Dot(toCentre, ray.direction);
    const double inside = sphere.radius * sphere.radius - (Dot(toCentre, toCentre) - along * along);
    if (inside < 0)
    {
        return -1;
    }
    const double half = std::sqrt(inside);
    return along - half > kTouch ? along - half : along + half;
}

double ReachFloor(const Ray& ray)
{
    return ray.direction.y < -kTouch ? -ray.origin.y / ray.direction.y : -1;
}

Material FloorAt(const Material& floor, const Vector& point)
{
    Material   here = floor;
    const long square =
        static_cast<long>(std::floor(point.x)) + static_cast<long>(std::floor(point.z));
    if (floor.checks && (square & 1) != 0)
    {
        here.colour = here.colour * 0.35;
    }
    return here;
}

void AddRing(Scene& scene, double turn, int count)
{
    for (int i = 0; i < count; ++i)
    {
        const double angle = kTau * (turn + static_cast<double>(i) / count);
        const Vector centre = {2.4 * std::cos(angle), 0.5, 2.4 * std::sin(angle)};
        scene.spheres.push_back({centre, 0.5, {kColours[i % 6], 0.15, 0.6, false}});
    }
}

void MakeOrbit(double turn, Scene& scene)
{
    scene.spheres.push_back({{0, 1.1, 0}, 1.1, {{0.95, 0.95, 1.0}, 0.85, 0.9, false}});
    AddRing(scene, turn, 6);
    scene.eye = {6 * std::sin(kTau * turn / 6), 2.6, -6 * std::cos(kTau * turn / 6)};
}

void MakeBounce(double turn, Scene& scene)
{
    for (int i = 0; i < 5; ++i)
    {
        const double phase = turn * 2 + i * 0.2;
        const double fall = 2 * (phase - std::floor(phase)) - 1;
        const double height = 0.6 + 1.9 * (1 - fall * fall);
        scene.spheres.push_back(
            {{(i - 2) * 1.35, height, 0.4 * (i % 2)}, 0.6, {kColours[i], 0.2, 0.8, false}});
    }
    scene.eye = {1.5 * std::sin(kTau * turn), 2.0, -6.5};
}

} // namespace

bool Scene::Nearest(const Ray& ray, Hit& hit) const
{
    const Sphere* nearest = nullptr;
    hit.distance = ReachFloor(ray);
    for (const Sphere& sphere : spheres)
    {
        const double distance = Reach(sphere, ray);
        if (distance > kTouch && (hit.distance <= kTouch || distance < hit.distance))
        {
            hit.distance = distance;
            nearest = &sphere;
        }
    }
    if (hit.distance <= kTouch)
    {
        return false;
    }
    hit.point = ray.origin + ray.direction * hit.distance;
    hit.normal = nearest ? Normal(hit.point - nearest->centre) : Vector{0, 1, 0};
    hit.material = nearest ? nearest->material : FloorAt(floor, hit.point);
    return true;
}

bool Scene::IsBlocked(const Ray& ray, double distance) const
{
    for (const Sphere& sphere : spheres)
    {
        const double reach = Reach(sphere, ray);
        if (reach > kTouch && reach < distance)
        {
            return true;
        }
    }
    return false;
}

Vector Scene::Sky(const Vector& direction)
{
    const double height = direction.y < 0 ? 0 : direction.y;
    return Mix({0.62, 0.70, 0.82}, {0.10, 0.26, 0.62}, std::sqrt(height));
}

bool MakeScene(const char* name, double turn, Scene& scene)
{
    scene = Scene();
    scene.floor = {{0.75, 0.74, 0.70}, 0.12, 0, true};
    scene.lamp = {-4, 7, -4};
    scene.lampRadius = 1.2;
    scene.target = {0, 0.9, 0};
    if (std::strcmp(name, "orbit") == 0)
    {
        MakeOrbit(turn, scene);
        return true;
    }
    if (std::strcmp(name, "bounce") == 0)
    {
        MakeBounce(turn, scene);
        return true;
    }
    return false;
}
