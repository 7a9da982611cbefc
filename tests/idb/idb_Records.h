#ifndef ORV_IDB_IDB_RECORDS_H
#define ORV_IDB_IDB_RECORDS_H

#include <base/cls_ReadVisitor.h>
#include <base/cls_WriteVisitor.h>
#include <base/nex_StreamException.h>
#include <base/nex_Throw.h>
#include <gsl/gsl_Dot.h>
#include <gsl/gsl_PersistentMatrix.h>
#include <gsl/gsl_PersistentVector.h>
#include <gsl/gsl_Point.h>
#include <gsl/gsl_StLine.h>

#include <string>

/// Persistent classes of the tests' own: every kind of attribute, a tree of classes, and chains.
enum class Colour : int { red, green = 7, blue = -2 };

struct Small {
    int number = 0;
    cow_String name;

    Small() = default;
    Small(int n, const char* text) : number(n), name(text) {}
    bool operator==(const Small&) const = default;

    static unsigned TypeId() { return 0x7F0001; }
    static void InitializeMetadata(cls_ClassRegistrar& r) {
        r.Class<Small>("Small", 1).Add<int>("number").Add<cow_String>("name");
    }
    void DBWrite(const cls_WriteVisitor& v) const {
        v.Write("number", number);
        v.Write("name", name);
    }
    explicit Small(const cls_ReadVisitor& v) : number(v.Read("number", 0)), name(v.Read("name", cow_String())) {}
};

struct Shape {
    int sides = 3;

    Shape() = default;
    explicit Shape(int n) : sides(n) {}
    virtual ~Shape() = default;
    virtual double Area() const = 0;
    virtual void DBWrite(const cls_WriteVisitor& v) const { v.Write("sides", sides); }
    virtual unsigned DynTypeId() const = 0;
    static unsigned TypeId() { return 0x7F0010; }
    static void InitializeMetadata(cls_ClassRegistrar& r) { r.Class<Shape>("Shape", 1).Add<int>("sides"); }
    explicit Shape(const cls_ReadVisitor& v) : sides(v.Read("sides", 0)) {}
};

/// Shape is not its first base, so that a wrong way to the base part would show.
struct Square : std::string, Shape {
    double side = 0.0;

    explicit Square(double s) : Shape(4), side(s) {}
    double Area() const override { return side * side; }
    unsigned DynTypeId() const override { return TypeId(); }
    static unsigned TypeId() { return 0x7F0011; }
    static void InitializeMetadata(cls_ClassRegistrar& r) { r.Class<Square, Shape>("Square", 1).Add<double>("side"); }
    void DBWrite(const cls_WriteVisitor& v) const override {
        Shape::DBWrite(v.Base(Shape::TypeId()));
        v.Write("side", side);
    }
    explicit Square(const cls_ReadVisitor& v) : Shape(v.Base()), side(v.Read("side", -1.0)) {}
};

/// Every kind of attribute once.
struct Everything {
    char letter = 'c';
    signed char tiny = -5;
    short brief = -300;
    int number = -70000;
    unsigned bits = 4000000000U;
    bool flag = true;
    float single = 0.1F;
    double real = 0.1;
    Colour colour = Colour::blue;
    cow_String text = cow_String(std::string("nul\0inside", 10));
    atr_String message = atr_String("translatable");
    OrvBasUtlFilePath path = OrvBasUtlFilePath("a/b.txt");
    Small part{7, "part"};
    cow_CountedHld<Shape> shape;
    cow_CountedHld<Shape> sameShape;
    cow_CountedHld<Shape> noShape;
    cow_COW<Small> held{Small(8, "held")};
    cow_List<int> ints{1, -2, 3};
    cow_List<unsigned> unsigneds{7U, 4294967295U};
    cow_List<float> floats{0.5F};
    cow_List<double> doubles{0.1, 0.2};
    cow_List<cow_String> strings{"", "x"};
    cow_List<Small> smalls{Small(1, "one"), Small(2, "")};
    cow_List<cow_CountedHld<Shape>> shapes;
    cow_List<gsl_Point> points{gsl_Point(1, 2, 3), gsl_Point(-4, 5, 6)};
    cow_2DArray<double> matrix{2, 3};
    cow_2DArray<int> noMatrix;
    cow_Map<cow_String, double> byName;
    cow_Map<int, unsigned> byNumber;
    cow_Map<cow_String, Small> smallByName;
    cow_Map<int, cow_CountedHld<Shape>> shapeByNumber;
    cow_Map<cow_String, cow_List<float>> curves;
    cow_Map<cow_String, cow_2DArray<double>> tables;

    static Everything Filled() {
        Everything e;
        e.shape = cow_CountedHld<Shape>(new Square(1.5));
        e.sameShape = e.shape;
        e.shapes = {e.shape, cow_CountedHld<Shape>(), cow_CountedHld<Shape>(new Square(2.0))};
        e.matrix.Get(1, 2) = 6.0;
        e.byName.Insert("pi", 3.14);
        e.byNumber.Insert(-1, 5U);
        e.byNumber.Insert(2, 4294967295U);
        e.smallByName.Insert("s", Small(3, "three"));
        e.shapeByNumber.Insert(1, e.shape);
        e.shapeByNumber.Insert(2, cow_CountedHld<Shape>());
        e.curves.Insert("c", {1.0F, 2.0F});
        e.tables.Insert("t", e.matrix);
        return e;
    }

    Everything() = default;

    /// Runs `f(name, member)` with each field.
    template <class F>
    static void ForEach(const F& f, auto&& e) {
        f("letter", e.letter), f("tiny", e.tiny), f("brief", e.brief), f("number", e.number), f("bits", e.bits);
        f("flag", e.flag), f("single", e.single), f("real", e.real), f("colour", e.colour), f("text", e.text);
        f("message", e.message), f("path", e.path), f("part", e.part), f("shape", e.shape);
        f("sameShape", e.sameShape), f("noShape", e.noShape), f("held", e.held), f("ints", e.ints);
        f("unsigneds", e.unsigneds), f("floats", e.floats), f("doubles", e.doubles), f("strings", e.strings);
        f("smalls", e.smalls), f("shapes", e.shapes), f("points", e.points), f("matrix", e.matrix);
        f("noMatrix", e.noMatrix), f("byName", e.byName), f("byNumber", e.byNumber), f("smallByName", e.smallByName);
        f("shapeByNumber", e.shapeByNumber), f("curves", e.curves), f("tables", e.tables);
    }

    static unsigned TypeId() { return 0x7F0002; }
    static void InitializeMetadata(cls_ClassRegistrar& r) {
        cls_ClassMetadata& metadata = r.Class<Everything>("Everything", 1);
        const auto add = [&]<class T>(const char* name, const T&) { metadata.Add<T>(name); };
        ForEach(add, Everything());
    }
    void DBWrite(const cls_WriteVisitor& v) const {
        ForEach([&v](const char* name, const auto& member) { v.Write(name, member); }, *this);
    }
    explicit Everything(const cls_ReadVisitor& v) {
        ForEach([&v]<class T>(const char* name, T& member) { member = v.Read(name, T()); }, *this);
    }
};

/// A chain through shared handles.
struct Link {
    cow_CountedHld<Link> next;
    cow_List<Link> inside;

    Link() = default;
    static unsigned TypeId() { return 0x7F0003; }
    static void InitializeMetadata(cls_ClassRegistrar& r) {
        r.Class<Link>("Link", 1).Add<cow_CountedHld<Link>>("next").Add<cow_List<Link>>("inside");
    }
    void DBWrite(const cls_WriteVisitor& v) const {
        v.Write("next", next);
        v.Write("inside", inside);
    }
    explicit Link(const cls_ReadVisitor& v)
        : next(v.Read("next", cow_CountedHld<Link>())), inside(v.Read("inside", cow_List<Link>())) {}
};

/// A registrar that knows all of them and the geometry values.
inline const cls_ClassRegistrar& TestRegistrar() {
    static const cls_ClassRegistrar* const registrar = [] {
        static cls_ClassRegistrar r;
        r.AddClass("cow_String", cls_StringClass, 1).Attribute("STRING", cls_StringAttribute);
        r.AddClass("atr_String", cls_TextClass, 1).Attribute("TRSTRING", cls_TextAttribute);
        for (const auto initializeMetadata :
             {Small::InitializeMetadata, Shape::InitializeMetadata, Square::InitializeMetadata,
              Everything::InitializeMetadata, Link::InitializeMetadata, gsl_StLine::InitializeMetadata,
              gsl_Point::InitializeMetadata, gsl_PersistentVector::InitializeMetadata,
              gsl_PersistentMatrix::InitializeMetadata, gsl_Dot::InitializeMetadata,
              omu_xoObjVarray<gsl_Dot>::InitializeMetadata})
            initializeMetadata(r);
        return &r;
    }();
    return *registrar;
}

#endif
