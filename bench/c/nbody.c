/* N-body: the Jovian planets around the sun; the energy before and after
   500,000 steps, in billionths. */
#include <stdio.h>

#define PI 3.141592653589793
#define SOLAR_MASS (4 * PI * PI)
#define DAYS_PER_YEAR 365.24
#define BODIES 5

/* The square root instruction itself: no maths library is linked. */
typedef double Pair __attribute__((vector_size(16)));
static double root(double x) { return __builtin_ia32_sqrtsd((Pair){x, 0})[0]; }

typedef struct {
  double x, y, z, vx, vy, vz, mass;
} Body;

static Body bodies[BODIES] = {
    {0, 0, 0, 0, 0, 0, 1},
    {4.84143144246472090e+00, -1.16032004402742839e+00, -1.03622044471123109e-01,
     1.66007664274403694e-03, 7.69901118419740425e-03, -6.90460016972063023e-05,
     9.54791938424326609e-04},
    {8.34336671824457987e+00, 4.12479856412430479e+00, -4.03523417114321381e-01,
     -2.76742510726862411e-03, 4.99852801234917238e-03, 2.30417297573763929e-05,
     2.85885980666130812e-04},
    {1.28943695621391310e+01, -1.51111514016986312e+01, -2.23307578892655734e-01,
     2.96460137564761618e-03, 2.37847173959480950e-03, -2.96589568540237556e-05,
     4.36624404335156298e-05},
    {1.53796971148509165e+01, -2.59193146099879641e+01, 1.79258772950371181e-01,
     2.68067772490389322e-03, 1.62824170038242295e-03, -9.51592254519715870e-05,
     5.15138902046611451e-05}};

static void scale(void) {
  for (int i = 0; i < BODIES; i++) {
    bodies[i].vx *= DAYS_PER_YEAR;
    bodies[i].vy *= DAYS_PER_YEAR;
    bodies[i].vz *= DAYS_PER_YEAR;
    bodies[i].mass *= SOLAR_MASS;
  }
}

static void offset_momentum(void) {
  double px = 0, py = 0, pz = 0;
  for (int i = 0; i < BODIES; i++) {
    px += bodies[i].vx * bodies[i].mass;
    py += bodies[i].vy * bodies[i].mass;
    pz += bodies[i].vz * bodies[i].mass;
  }
  bodies[0].vx = -px / SOLAR_MASS;
  bodies[0].vy = -py / SOLAR_MASS;
  bodies[0].vz = -pz / SOLAR_MASS;
}

static double energy(void) {
  double e = 0;
  for (int i = 0; i < BODIES; i++) {
    Body* b = &bodies[i];
    e += 0.5 * b->mass * (b->vx * b->vx + b->vy * b->vy + b->vz * b->vz);
    for (int j = i + 1; j < BODIES; j++) {
      Body* c = &bodies[j];
      double dx = b->x - c->x, dy = b->y - c->y, dz = b->z - c->z;
      e -= b->mass * c->mass / root(dx * dx + dy * dy + dz * dz);
    }
  }
  return e;
}

static void advance(double dt) {
  for (int i = 0; i < BODIES; i++) {
    Body* b = &bodies[i];
    for (int j = i + 1; j < BODIES; j++) {
      Body* c = &bodies[j];
      double dx = b->x - c->x, dy = b->y - c->y, dz = b->z - c->z;
      double d2 = dx * dx + dy * dy + dz * dz;
      double mag = dt / (d2 * root(d2));
      b->vx -= dx * c->mass * mag;
      b->vy -= dy * c->mass * mag;
      b->vz -= dz * c->mass * mag;
      c->vx += dx * b->mass * mag;
      c->vy += dy * b->mass * mag;
      c->vz += dz * b->mass * mag;
    }
  }
  for (int i = 0; i < BODIES; i++) {
    bodies[i].x += dt * bodies[i].vx;
    bodies[i].y += dt * bodies[i].vy;
    bodies[i].z += dt * bodies[i].vz;
  }
}

int main(void) {
  scale();
  offset_momentum();
  printf("%.0f\n", energy() * 1e9);
  for (int n = 0; n < 500000; n++) advance(0.01);
  printf("%.0f\n", energy() * 1e9);
  return 0;
}
