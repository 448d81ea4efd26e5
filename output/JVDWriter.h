// The display file that goes with a JVX model: axes, bounding box, box ratio, clipping,
// camera, lights and background of the one scene of a plot.
#pragma once

#include <grafel/output/JavaViewWriter.h>

namespace Grafel {

class CoordinateSystemBase;
class CoordinateSystem2d;
class CoordinateSystem3d;
class SceneBase;
class Scene3d;
struct P3;

/// Writes a JVD display. All it works with is the view box of the coordinate system, six
/// bounds in the order x min, x max, y min, y max, z min, z max, and `scale`, its largest
/// extent; a bound that is not known is NaN, and the writer leaves out what depends on it.
class JVDWriter : public JavaViewWriter {
public:
    explicit JVDWriter(PlotDocument* plotDocument) : JavaViewWriter(plotDocument) {}

    void write(std::ostream* out, double at) override;

protected:
    /// The viewing box children of `system`; a pair whose maximum is not above its minimum
    /// becomes NaN. `scale` is the largest known extent, NaN when none is known. In 2D the z
    /// pair stays NaN.
    void getViewBox(CoordinateSystemBase* system, bool is2d, double* box, double& scale);
    /// The axes with their three rulers. Clears `clipGrown` when centred axes cross inside the
    /// box, where the clip range need not leave room for them.
    void putAxes(CoordinateSystemBase* system, bool is2d, double* box, bool& clipGrown);
    void putAxisBounds(double minimum, double maximum);
    /// The label attributes of a ruler from the title child `token`, or nothing.
    void putAxisTitle(CoordinateSystemBase* system, Arbor::Token token);
    /// The major and minor tick units from the distance child `token`, or nothing.
    void putHashUnit(CoordinateSystemBase* system, Arbor::Token token, long ticksBetween);
    void putBndbox(CoordinateSystemBase* system, bool is2d);
    /// Leaves in `ratio` what the 2D camera distance is scaled by.
    void putBoxRatio2d(CoordinateSystem2d* system, double* box, double& ratio);
    void putBoxRatio3d(Scene3d* scene, CoordinateSystem3d* system, double* box);
    void putClipRange(bool is2d, double* box, double scale, bool clipGrown);
    void putCameras2d(CoordinateSystem2d* system, const double* box, double ratio);
    /// The first usable camera object of `system`, else a default camera on the box.
    void putCameras3d(CoordinateSystem3d* system, const double* box, double scale);
    /// One camera from the image of `object`; opens the cameras element when it writes.
    void putCamera(Arbor::Node* object, double scale, bool& opened);
    void putLights(CoordinateSystem3d* system);
    /// One light from the image of `object`; opens the lights element when it writes.
    void putLight(Arbor::Node* object, bool& opened);
    /// The fixed set of an ambient and six point lights around the box.
    void putAutomaticLights(const double* box);
    void putLightColorIntensity(RGBA color, double intensity);
    void putPosition(const P3& p);
    void putInterest(const P3& p);
    void putBackground(SceneBase* scene);

private:
    void putRuler(CoordinateSystemBase* system, bool is2d, int axis, int grid, const double* box);
    void putAxesThickness(CoordinateSystemBase* system);
    void putPoint(const char* open, const P3& p, const char* close);
    void putNumber(double value);
};

} // namespace Grafel
