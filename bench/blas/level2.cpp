// Matrix and vector at n = 300, every family in four types: a matrix of d lies in the second cache. Bands
// have 32 diagonals beside the main one.
#include "arith/element.h"
#include "bench/common/families.h"

#include <memory>

namespace vor::bench {

namespace {

constexpr int kOrder = 300, kBand = 32;

// Triangles have tiny elements beside ones on the diagonal, so that a product or a solve can be repeated
// on its own result for ever; the scalars keep all other data where they are.
template <class T>
struct Operands {
    Operands() : a(size_t(n) * size_t(n)), x(size_t(n)), y(size_t(n)), c(x.size()), s(x.size()) {
        for (size_t i = 0; i < a.size(); ++i) part(a[i]) = real_t<T>(1e-6) / real_t<T>(1 + i % 97);
        for (size_t i = 0; i < x.size(); ++i) {
            part(x[i]) = real_t<T>(1) / real_t<T>(1 + i % 89);
            part(y[i]) = real_t<T>(1) / real_t<T>(1 + i % 83);
            part(a[i * (x.size() + 1)]) = 1;
            c[i] = real_t<T>(0.8);
            s[i] = real_t<T>(0.6);
        }
        part(alpha) = real_t<T>(1e-6);
        part(one) = 1;
    }
    static real_t<T>& part(T& z) { return reinterpret_cast<real_t<T>&>(z); }
    // An update that comes twice is undone.
    void turn() { part(alpha) = -part(alpha); }

    int n = kOrder, band = kBand, band_rows = 2 * kBand + 1, step = 1;
    T alpha{}, one{}; // their first part is the scalar of a Hermitian update
    std::vector<T> a, x, y;
    std::vector<real_t<T>> c, s;
};

// The routine behind a symbol. All its arguments are addresses, but for the lengths of letters.
struct Routine {
    void* address;
    template <class... A>
    void operator()(A... arguments) const {
        reinterpret_cast<void (*)(A...)>(address)(arguments...);
    }
};

// One family: the letters of its cases, which are its first arguments, one by one, and its other
// arguments. `operations` real ones for each n^2 elements of a square, or n (2 band + 1) of a band.
struct Family {
    const char *real_name, *complex_name; // without the letter of the type
    std::vector<std::string> letters;
    double operations;
    double goal = 0; // of d
};

enum class Shape { square, band };

template <class T>
class Types {
public:
    Types(Suite& suite, char type) : suite_(suite), type_(type) {}

    // run(routine, letters, operands) makes the call. `x87`: the type works there though it is single.
    template <class Run>
    void add(const Family& family, Shape shape, bool x87, Run run) {
        const std::string symbol =
            type_ + std::string(is_complex<T> ? family.complex_name : family.real_name);
        const double operations = family.operations * (is_complex<T> ? 4 : 1);
        const double elements = shape == Shape::square ? kOrder : 2 * kBand + 1;
        const bool judged = type_ == 'd' || (type_ == 's' && symbol == "sgemv");
        const double goal = judged ? family.goal : 0;
        for (const std::string& letters : family.letters)
            suite_.push_back(
                {.name = symbol + (letters.empty() ? "" : " " + letters) +
                         " n=" + std::to_string(kOrder),
                 .formula = std::to_string(int(operations * elements)) + "n operations",
                 .work = operations * elements * kOrder,
                 .limit = x87 || sizeof(real_t<T>) == 8 ? Limit::x87 : Limit::vector,
                 .bind = binder(symbol, letters, run),
                 .goal = goal,
                 .rivals = {},
                 .against_goal = goal > 0 ? 1.0 : 0.0});
    }

private:
    template <class Run>
    static Binder binder(std::string symbol, std::string letters, Run run) {
        return [=](const Library& library) -> Call {
            void* const address = library.find(symbol.c_str());
            if (!address) return {};
            const auto operands = std::make_shared<Operands<T>>();
            return [=] { run(Routine{address}, letters, *operands); };
        };
    }

    Suite& suite_;
    char type_;
};

const std::vector<std::string> kTriangles = {"U", "L"};
const std::vector<std::string> kSolves = {"UNN", "UTN", "LNN", "LTN"};
const std::vector<std::string> kUnit = {"UNU", "UTU"};

template <class T>
void add_products(Types<T> types) {
    types.add({"gemv", "gemv", {"N", "T"}, 2, 0.9}, Shape::square, true,
              [](Routine f, const std::string& letter, Operands<T>& o) {
                  f(letter.data(), &o.n, &o.n, &o.alpha, o.a.data(), &o.n, o.x.data(), &o.step,
                    &o.one, o.y.data(), &o.step, 1);
              });
    types.add({"gbmv", "gbmv", {"N", "T"}, 2}, Shape::band, false,
              [](Routine f, const std::string& letter, Operands<T>& o) {
                  f(letter.data(), &o.n, &o.n, &o.band, &o.band, &o.alpha, o.a.data(), &o.band_rows,
                    o.x.data(), &o.step, &o.one, o.y.data(), &o.step, 1);
              });
    types.add({"symv", "hemv", kTriangles, 2, 0.75}, Shape::square, false,
              [](Routine f, const std::string& letter, Operands<T>& o) {
                  f(letter.data(), &o.n, &o.alpha, o.a.data(), &o.n, o.x.data(), &o.step, &o.one,
                    o.y.data(), &o.step, 1);
              });
    types.add({"sbmv", "hbmv", kTriangles, 2}, Shape::band, false,
              [](Routine f, const std::string& letter, Operands<T>& o) {
                  f(letter.data(), &o.n, &o.band, &o.alpha, o.a.data(), &o.band_rows, o.x.data(),
                    &o.step, &o.one, o.y.data(), &o.step, 1);
              });
    types.add({"spmv", "hpmv", kTriangles, 2}, Shape::square, false,
              [](Routine f, const std::string& letter, Operands<T>& o) {
                  f(letter.data(), &o.n, &o.alpha, o.a.data(), o.x.data(), &o.step, &o.one,
                    o.y.data(), &o.step, 1);
              });
}

template <class T>
void add_triangles(Types<T> types) {
    const auto dense = [](Routine f, const std::string& letters, Operands<T>& o) {
        f(&letters[0], &letters[1], &letters[2], &o.n, o.a.data(), &o.n, o.x.data(), &o.step, 1, 1,
          1);
    };
    const auto band = [](Routine f, const std::string& letters, Operands<T>& o) {
        f(&letters[0], &letters[1], &letters[2], &o.n, &o.band, o.a.data(), &o.band_rows,
          o.x.data(), &o.step, 1, 1, 1);
    };
    const auto packed = [](Routine f, const std::string& letters, Operands<T>& o) {
        f(&letters[0], &letters[1], &letters[2], &o.n, o.a.data(), o.x.data(), &o.step, 1, 1, 1);
    };
    types.add({"trsv", "trsv", kSolves, 1, 0.75}, Shape::square, false, dense);
    types.add({"trmv", "trmv", kUnit, 1}, Shape::square, false, dense);
    types.add({"tbsv", "tbsv", kUnit, 1}, Shape::band, false, band);
    types.add({"tbmv", "tbmv", kUnit, 1}, Shape::band, false, band);
    types.add({"tpsv", "tpsv", kUnit, 1}, Shape::square, false, packed);
    types.add({"tpmv", "tpmv", kUnit, 1}, Shape::square, false, packed);
}

template <class T>
void add_updates(Types<T> types) {
    types.add({"ger", "geru", {""}, 2, 0.75}, Shape::square, true,
              [](Routine f, const std::string&, Operands<T>& o) {
                  o.turn();
                  f(&o.n, &o.n, &o.alpha, o.x.data(), &o.step, o.y.data(), &o.step, o.a.data(),
                    &o.n);
              });
    types.add({"syr", "her", kTriangles, 1}, Shape::square, false,
              [](Routine f, const std::string& letter, Operands<T>& o) {
                  o.turn();
                  f(letter.data(), &o.n, &o.alpha, o.x.data(), &o.step, o.a.data(), &o.n, 1);
              });
    types.add({"spr", "hpr", kTriangles, 1}, Shape::square, false,
              [](Routine f, const std::string& letter, Operands<T>& o) {
                  o.turn();
                  f(letter.data(), &o.n, &o.alpha, o.x.data(), &o.step, o.a.data(), 1);
              });
    types.add({"syr2", "her2", kTriangles, 2}, Shape::square, false,
              [](Routine f, const std::string& letter, Operands<T>& o) {
                  o.turn();
                  f(letter.data(), &o.n, &o.alpha, o.x.data(), &o.step, o.y.data(), &o.step,
                    o.a.data(), &o.n, 1);
              });
    types.add({"spr2", "hpr2", kTriangles, 2}, Shape::square, false,
              [](Routine f, const std::string& letter, Operands<T>& o) {
                  o.turn();
                  f(letter.data(), &o.n, &o.alpha, o.x.data(), &o.step, o.y.data(), &o.step,
                    o.a.data(), 1);
              });
}

// Rotations turn rows by the same angle for ever: no element grows. 6 operations for two reals.
template <class T>
void add_rotations(Types<T> types) {
    const double operations = is_complex<T> ? 3 : 6; // a complex element is two reals, not four
    types.add({"lasr_lvf", "lasr_lvf", {""}, operations}, Shape::square, false,
              [](Routine f, const std::string&, Operands<T>& o) {
                  f(&o.n, &o.n, o.c.data(), o.s.data(), o.a.data(), &o.n);
              });
}

template <class T>
void add_type(Suite& suite, char type) {
    const Types<T> types(suite, type);
    add_products(types);
    add_triangles(types);
    add_updates(types);
    add_rotations(types);
}

} // namespace

Suite level2_cases() {
    Suite suite;
    add_type<float>(suite, 's');
    add_type<double>(suite, 'd');
    add_type<cfloat>(suite, 'c');
    add_type<cdouble>(suite, 'z');
    return suite;
}

} // namespace vor::bench
