/* The header is C: builds with -std=c99 -pedantic-errors, runs, and returns 0 when results come through. */
#include <utf/utf_flat.h>

int main(void) {
    const double s[] = {3.0, 1.0, 2.0, 0.0, 0.0, 0.0};
    const int32_t tensor = 1, full = 7, three = 3;
    double out[7], quarterTurnAboutX[] = {1, 0, 0, 0, 0, 1, 0, -1, 0}, q[4];
    utf_calprinquat(s, out, &tensor, &full, &three, &three);
    utf_getquat(q, quarterTurnAboutX);
    return out[0] == 3.0 && out[1] == 2.0 && out[2] == 1.0 && q[0] > 0.7 && q[3] > 0.7 ? 0 : 1;
}
