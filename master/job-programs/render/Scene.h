#pragma once

#include "master/job-programs/render/Vector.h"

#include <vector>

/// How a surface looks.
struct Material
{
    Vector colour;
    double mirror = 0;     ///< Share of the light that is reflected as in a mirror, 0 to 1.
    double gloss = 0;      ///< Strength of the highlight, 0 to 1.
    bool   checks = false; ///< A pattern of squares, every second one darker.
};

struct Sphere
{
    Vector   centre;
    double   radius = 1;
    Material material;
};

struct Ray
{
    Vector origin;
    Vector direction; ///< Of length 1.
};

struct Hit
{
    double   distance = 0;
    Vector   point;
    Vector   normal; ///< Of length 1, towards the ray's origin.
    Material material;
};

/// Spheres on a chequered floor under a round lamp. The floor is the plane y = 0.
struct Scene
{
    std::vector<Sphere> spheres;
    Material            floor;
    Vector              lamp;           ///< Centre.
    double              lampRadius = 1; ///< What makes shadows soft.
    Vector              eye;
    Vector              target; ///< What the eye looks at.

    /// The nearest surface that the ray meets; false when it leaves into the sky.
    bool Nearest(const Ray& ray, Hit& hit) const;
    /// Whether something stands between the ray's origin and `distance`.
    bool IsBlocked(const Ray& ray, double distance) const;
    /// The sky's light from a direction.
    static Vector Sky(const Vector& direction);
};

/// The scenes by name ("orbit", "bounce"). `turn` is the place in the animation, from 0 to 1;
/// its ends meet. False when there is no scene of that name.
bool MakeScene(const char* name, double turn, Scene& scene);
