#include <utf/utf_Slerp.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

namespace {

using Four = std::array<double, 4>;

double Length(const Four& q) { return std::sqrt(q[0] * q[0] + q[1] * q[1] + q[2] * q[2] + q[3] * q[3]); }

Four Combined(double ofA, const Four& a, double ofB, const Four& b) {
    Four sum{};
    for (std::size_t i = 0; i < 4; ++i) sum[i] = ofA * a[i] + ofB * b[i];
    return sum;
}

template <class T>
Four Unit(const utf_Quaternion<T>& q) {
    const Four all = {q.X(), q.Y(), q.Z(), q.W()};
    const double length = Length(all);
    return length == 0.0 ? all : Combined(1.0 / length, all, 0.0, all);
}

/// Two unit quaternions less than a right angle apart (as vectors of four), and that angle. W. Kahan's half-tangent
/// form keeps small angles accurate, which an arc cosine does not.
struct Arc {
    template <class T>
    Arc(const utf_Quaternion<T>& a, const utf_Quaternion<T>& b) : from(Unit(a)), to(Unit(b)) {
        double difference = Length(Combined(1.0, from, -1.0, to));
        double sum = Length(Combined(1.0, from, 1.0, to));
        if (difference > sum) {
            to = Combined(-1.0, to, 0.0, to);
            std::swap(difference, sum);
        }
        radians = 2.0 * std::atan2(difference, sum);
    }

    Four from;
    Four to;
    double radians;
};

}  // namespace

template <class T>
utf_Quaternion<T> utf_Slerp(const utf_Quaternion<T>& from, const utf_Quaternion<T>& to, double fraction) {
    const Arc arc(from, to);
    const double sine = std::sin(arc.radians);
    Four q = arc.from;
    if (sine != 0.0)
        q = Combined(std::sin((1.0 - fraction) * arc.radians) / sine, arc.from, std::sin(fraction * arc.radians) / sine,
                     arc.to);
    const std::array<T, 4> result = {static_cast<T>(q[0]), static_cast<T>(q[1]), static_cast<T>(q[2]),
                                     static_cast<T>(q[3])};
    const bool flat = from.type() == res_QUATERNION_2D && to.type() == res_QUATERNION_2D;
    return flat ? utf_Quaternion<T>(res_QUATERNION_2D, result.data() + 2)
                : utf_Quaternion<T>(res_QUATERNION_3D, result.data());
}

template <class T>
double utf_AngleBetween(const utf_Quaternion<T>& a, const utf_Quaternion<T>& b) {
    return 2.0 * Arc(a, b).radians;
}

template utf_Quaternion<float> utf_Slerp(const utf_Quaternion<float>&, const utf_Quaternion<float>&, double);
template utf_Quaternion<double> utf_Slerp(const utf_Quaternion<double>&, const utf_Quaternion<double>&, double);
template double utf_AngleBetween(const utf_Quaternion<float>&, const utf_Quaternion<float>&);
template double utf_AngleBetween(const utf_Quaternion<double>&, const utf_Quaternion<double>&);
