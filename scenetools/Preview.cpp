#include "scenetools/Preview.h"

#include <AIS_InteractiveContext.hxx>
#include <Aspect_DisplayConnection.hxx>
#include <Graphic3d_Camera.hxx>
#include <Image_AlienPixMap.hxx>
#include <OpenGl_GraphicDriver.hxx>
#include <Prs3d_Drawer.hxx>
#include <Standard_Failure.hxx>
#include <TDocStd_Document.hxx>
#include <V3d_ImageDumpOptions.hxx>
#include <V3d_View.hxx>
#include <V3d_Viewer.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>
#include <XCAFPrs_AISObject.hxx>
#include <Xw_Window.hxx>
#include <cmath>
#include <cstdlib>
#include <gp_Quaternion.hxx>
#include <limits>
#include <stdexcept>

#include "scenetools/GltfCameras.h"
#include "scenetools/UpAxis.h"
#include "scenetools/XdeDocument.h"

namespace scenetools {

namespace {

struct Direction {
    std::string from;  // what the picture is seen from, for the answer
    gp_Dir look{-1, -1, -1};
    gp_Dir up{0, 1, 0};
    bool orthographic = true;
    double fieldOfView = 45;
};

const Camera& findCamera(const Scene& scene, const std::string& name) {
    if (scene.cameras.empty()) throw std::runtime_error("the scene has no camera: use --fit");
    if (name.empty()) return scene.cameras.front();
    for (const Camera& camera : scene.cameras) {
        if (camera.name == name) return camera;
    }
    throw std::runtime_error("the scene has no camera \"" + name + "\"");
}

Direction chooseDirection(const Scene& scene, const PreviewRequest& request) {
    Direction direction;
    if (request.fit) {
        direction.from = "an isometric view";
        return direction;
    }
    const Camera& camera = findCamera(scene, request.camera);
    const CameraPlacement place = placeCamera(scene, camera, meshBounds(scene, sceneToViewer(scene)));
    const gp_Quaternion rotation(place.rotation[0], place.rotation[1], place.rotation[2], place.rotation[3]);
    direction.from = "camera \"" + camera.name + "\"";
    direction.look = gp_Dir(rotation.Multiply(gp_Vec(0, 0, -1)));
    direction.up = gp_Dir(rotation.Multiply(gp_Vec(0, 1, 0)));
    direction.orthographic = camera.orthographic;
    direction.fieldOfView = camera.fieldOfView;
    return direction;
}

gp_Trsf viewerTrsf(const Scene& scene) {
    const Matrix m = sceneToViewer(scene);
    gp_Trsf trsf;
    trsf.SetValues(m[0], m[4], m[8], 0, m[1], m[5], m[9], 0, m[2], m[6], m[10], 0);
    return trsf;
}

Handle(Aspect_DisplayConnection) openDisplay() {
    const char* name = std::getenv("DISPLAY");
    if (!name || !*name) {
        throw std::runtime_error(
            "no X display to draw on (DISPLAY is not set): run under Xvfb, "
            "for example xvfb-run -a vantrel-scene preview ...");
    }
    Handle(Aspect_DisplayConnection) display = new Aspect_DisplayConnection(TCollection_AsciiString(name));
    if (display->GetDisplayAspect() == nullptr)
        throw std::runtime_error(std::string("can't open the X display ") + name);
    return display;
}

// The pixel rectangle of the model's box in the view: X0 Y0 X1 Y1, Y down.
std::string projectedBox(const Handle(V3d_View) & view, const Bounds& bounds) {
    double x0 = std::numeric_limits<double>::max(), y0 = x0, x1 = -x0, y1 = -x0;
    for (int corner = 0; corner < 8; ++corner) {
        Standard_Integer x = 0, y = 0;
        view->Convert(corner & 1 ? bounds.max[0] : bounds.min[0], corner & 2 ? bounds.max[1] : bounds.min[1],
                      corner & 4 ? bounds.max[2] : bounds.min[2], x, y);
        x0 = std::min<double>(x0, x);
        y0 = std::min<double>(y0, y);
        x1 = std::max<double>(x1, x);
        y1 = std::max<double>(y1, y);
    }
    return std::to_string(static_cast<long>(x0)) + " " + std::to_string(static_cast<long>(y0)) + " " +
           std::to_string(static_cast<long>(x1)) + " " + std::to_string(static_cast<long>(y1));
}

}  // namespace

namespace {

std::string drawPreview(const Scene& scene, const std::filesystem::path& sceneFolder, const PreviewRequest& request) {
    const Bounds bounds = meshBounds(scene, sceneToViewer(scene));
    if (bounds.empty) throw std::runtime_error("the scene has no mesh to show");
    const Direction direction = chooseDirection(scene, request);

    Handle(Aspect_DisplayConnection) display = openDisplay();
    Handle(OpenGl_GraphicDriver) driver = new OpenGl_GraphicDriver(display);
    Handle(V3d_Viewer) viewer = new V3d_Viewer(driver);
    viewer->SetDefaultLights();
    viewer->SetLightOn();
    Handle(AIS_InteractiveContext) context = new AIS_InteractiveContext(viewer);
    context->DefaultDrawer()->SetAutoTriangulation(Standard_False);

    Handle(Xw_Window) window = new Xw_Window(display, "vantrel-scene", 0, 0, request.width, request.height);
    window->SetVirtual(Standard_True);
    Handle(V3d_View) view = viewer->CreateView();
    view->SetWindow(window);
    view->SetBackgroundColor(Quantity_Color(previewBackground[0] / 255.0, previewBackground[1] / 255.0,
                                            previewBackground[2] / 255.0, Quantity_TOC_sRGB));

    Handle(TDocStd_Document) document = makeXdeDocument(scene, sceneFolder);
    TDF_LabelSequence roots;
    XCAFDoc_DocumentTool::ShapeTool(document->Main())->GetFreeShapes(roots);
    const gp_Trsf placement = viewerTrsf(scene);
    for (const TDF_Label& root : roots) {
        Handle(XCAFPrs_AISObject) object = new XCAFPrs_AISObject(root);
        object->SetLocalTransformation(placement);
        context->Display(object, AIS_Shaded, -1, Standard_False);
    }

    const Handle(Graphic3d_Camera)& camera = view->Camera();
    camera->SetProjectionType(direction.orthographic ? Graphic3d_Camera::Projection_Orthographic
                                                     : Graphic3d_Camera::Projection_Perspective);
    if (!direction.orthographic) camera->SetFOVy(direction.fieldOfView);
    camera->SetDirection(direction.look);
    camera->SetUp(direction.up);
    view->FitAll(0.05, Standard_False);
    view->Redraw();

    Image_AlienPixMap picture;
    V3d_ImageDumpOptions options;
    options.Width = request.width;
    options.Height = request.height;
    options.BufferType = Graphic3d_BT_RGB;
    if (!view->ToPixMap(picture, options)) throw std::runtime_error("the view can't be drawn off screen");
    if (!picture.Save(TCollection_AsciiString(request.output.string().c_str()))) {
        throw std::runtime_error("can't write " + request.output.string());
    }
    const std::string box = projectedBox(view, bounds);
    context->RemoveAll(Standard_False);
    view->Remove();
    return direction.from + ", model box at pixels " + box;
}

}  // namespace

std::string renderPreview(const Scene& scene, const std::filesystem::path& sceneFolder, const PreviewRequest& request) {
    try {
        return drawPreview(scene, sceneFolder, request);
    } catch (const Standard_Failure& failure) {
        throw std::runtime_error(std::string("the preview can't be drawn: ") + failure.GetMessageString());
    }
}

}  // namespace scenetools
