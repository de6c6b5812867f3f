"""The fighters' bodies, drawn facing right with the feet at (0, 0).

A pose is a small record of numbers; every animation frame of every fighter is
one pose, so the three fighters move alike and differ in build and manner."""
import math
from svgkit import INK, ellipse, circle, path, poly, limb, group, f


class Pose:
    def __init__(self, bob=0.0, squash=1.0, lean=0.0, mouth=0.0, arms="rest", swing=0.0,
                 step=0.0, eyes="open", lying=False, air=False):
        self.bob = bob          # body lift, pixels (negative is up)
        self.squash = squash    # vertical scale of the body
        self.lean = lean        # degrees, positive leans forward
        self.mouth = mouth      # 0 closed .. 1 wide open
        self.arms = arms        # rest, swing, speak, guard, flail, splay
        self.swing = swing      # -1 .. 1, phase of arms and legs
        self.step = step        # -1 .. 1, stride of the legs
        self.eyes = eyes        # open, blink, squint, wide, dead
        self.lying = lying      # the dead lie on their back
        self.air = air          # legs dangle


def animations():
    """Frames of every animation, in the order the game numbers them: the idle
    picture must be animation 0."""
    idle = [Pose(bob=b, squash=s, eyes=e) for b, s, e in
            [(0, 1.0, "open"), (-0.5, 1.01, "open"), (-1, 1.02, "open"), (-1.5, 1.03, "open"),
             (-1.5, 1.03, "open"), (-1, 1.02, "blink"), (-0.5, 1.01, "open"), (0, 1.0, "open")]]
    moving = []
    for i in range(6):
        ph = math.sin(i / 6.0 * 2 * math.pi)
        moving.append(Pose(bob=-abs(math.cos(i / 6.0 * 2 * math.pi)) * 3, lean=6, arms="swing",
                           swing=ph, step=ph))
    speaking = [Pose(mouth=m, arms="speak", swing=s, bob=b, lean=4) for m, s, b in
                [(0.45, 0.0, 0), (1.0, 0.6, -1), (0.7, 0.2, -1), (1.0, 0.8, -2)]]
    defending = [Pose(arms="guard", eyes="squint", squash=0.94, lean=-6, swing=s) for s in (0.0, 0.35)]
    falling = [Pose(arms="flail", eyes="wide", mouth=0.65, swing=s, air=True, squash=1.04) for s in (-1.0, 1.0)]
    dead = [Pose(eyes="dead", mouth=0.35, lying=True, arms="splay")]
    return [("idle", 6.0, idle), ("moving", 12.0, moving), ("speaking", 10.0, speaking),
            ("defending", 6.0, defending), ("falling", 10.0, falling), ("dead", 1.0, dead)]


class Rig:
    """Shared anatomy: two legs, two arms, a body, a face. Subclasses give the
    build (sizes, colours) and their own details."""
    body_y = -36      # centre of the body above the feet
    body_rx = 25
    body_ry = 30
    hip_x = 9
    hip_y = -12
    leg = 6           # limb thickness
    leg_colour = "#6a4fb8"
    foot_colour = "#4b3590"
    body_colour = "#7b5cd6"
    belly_colour = "#b9a6f2"
    arm_colour = "#6a4fb8"
    shoulder = (-8, -27)
    front_shoulder = (12, -25)
    arm_len = 16
    eye_y = -52
    eye_x = (5, 17)
    eye_r = (5.0, 6.5)
    mouth_at = (16, -40)
    dead_turn = -90
    dead_lift = 23    # how far the lying body is raised to rest on the floor

    # --- the parts -----------------------------------------------------
    def legs(self, p):
        out = ""
        for side in (-1, 1):
            hx = side * self.hip_x
            if p.air:
                fx, fy = hx + side * 3 + p.swing * side * 2, -2
                knee = (hx + 4, self.hip_y + 6)
            else:
                fx, fy = hx + p.step * side * 7, 0
                knee = ((hx + fx) / 2 + 3, (self.hip_y + fy) / 2)
            out += limb([(hx, self.hip_y + p.bob), knee, (fx, fy - 3)], self.leg_colour, self.leg)
            out += ellipse(fx + 3, fy - 2.5, 7, 3.5, self.foot_colour)
        return out

    def arm_end(self, p, front):
        sx, sy = self.front_shoulder if front else self.shoulder
        sy += p.bob
        L = self.arm_len
        k = 1 if front else -1
        if p.arms == "swing":
            a = math.radians(90 - 35 * p.swing * k)
            return sx + math.cos(a) * L * 0.8, sy + math.sin(a) * L
        if p.arms == "speak":
            if front:
                return sx + L * 0.9, sy - L * (0.5 + 0.4 * p.swing)
            return sx - L * 0.3, sy + L * 0.9
        if p.arms == "guard":
            return sx + L * (0.95 if front else 1.1), sy - L * (0.75 + 0.1 * p.swing)
        if p.arms == "flail":
            return sx + k * L * 0.5 + p.swing * 3 * k, sy - L
        if p.arms == "splay":
            return sx + k * L, sy + L * 0.2
        return sx + k * 3, sy + L

    def arm(self, p, front):
        sx, sy = self.front_shoulder if front else self.shoulder
        ex, ey = self.arm_end(p, front)
        mid = ((sx + ex) / 2 + (2 if front else -2), (sy + p.bob + ey) / 2 + 2)
        out = limb([(sx, sy + p.bob), mid, (ex, ey)], self.arm_colour, self.leg - 1)
        out += circle(ex, ey, 3.6, self.arm_colour)
        return out

    def body(self, p):
        cy = self.body_y + p.bob + self.body_ry * (1 - p.squash)
        out = ellipse(0, cy, self.body_rx, self.body_ry * p.squash, self.body_colour)
        out += ellipse(self.body_rx * 0.3, cy + self.body_ry * 0.25, self.body_rx * 0.55,
                       self.body_ry * 0.55 * p.squash, self.belly_colour, stroke=None)
        return out

    def eye(self, x, y, r, p):
        rx, ry = r
        if p.eyes == "blink":
            return path("M%s %s Q%s %s %s %s" % (f(x - rx), f(y), f(x), f(y + 3), f(x + rx), f(y)), "none")
        if p.eyes == "dead":
            d = "M%s %s L%s %s M%s %s L%s %s" % (f(x - 4), f(y - 4), f(x + 4), f(y + 4), f(x - 4), f(y + 4), f(x + 4), f(y - 4))
            return path(d, "none", width=2.5)
        if p.eyes == "squint":
            ry *= 0.45
        if p.eyes == "wide":
            rx, ry = rx * 1.15, ry * 1.15
        out = ellipse(x, y, rx, ry, "#ffffff")
        pr = min(rx, ry) * (0.45 if p.eyes == "wide" else 0.6)
        out += circle(x + rx * 0.3, y + (0 if p.eyes == "squint" else 0.5), pr, INK, stroke=None)
        out += circle(x + rx * 0.3 + pr * 0.35, y - pr * 0.4, pr * 0.3, "#ffffff", stroke=None)
        return out

    def eyes(self, p):
        return "".join(self.eye(x, self.eye_y + p.bob, self.eye_r, p) for x in self.eye_x)

    def mouth(self, p):
        mx, my = self.mouth_at
        my += p.bob
        if p.mouth <= 0.05:
            return path("M%s %s Q%s %s %s %s" % (f(mx - 6), f(my - 1), f(mx), f(my + 3), f(mx + 5), f(my - 2)), "none")
        rx, ry = 4 + p.mouth * 2.5, 1.5 + p.mouth * 6
        out = ellipse(mx, my + ry * 0.4, rx, ry, "#3d0f1d")
        if p.mouth > 0.3:
            out += ellipse(mx + 0.5, my + ry * 1.0, rx * 0.6, ry * 0.35, "#e85a6b", stroke=None)
        return out

    def details_back(self, p):
        return ""

    def details_front(self, p):
        return ""

    def mouth_point(self, p):
        """Where the speech bubble attaches, relative to the feet."""
        mx, my = self.mouth_at
        return mx + 4, my + p.bob - 10

    def draw(self, p):
        upright = (self.details_back(p) + self.arm(p, False) + self.legs(p) + self.body(p)
                   + self.details_front(p) + self.eyes(p) + self.mouth(p) + self.arm(p, True))
        if p.lying and self.dead_turn == 180:
            return group(upright, "translate(0 %s) rotate(180)" % f(-self.dead_lift))
        if p.lying:
            return group(upright, "translate(36 %s) rotate(-90)" % f(-self.dead_lift))
        if p.lean:
            return group(upright, "rotate(%s 0 -4)" % f(p.lean))
        return upright


class Mowca(Rig):
    """The orator: a round purple imp with horns and a red scarf."""

    def details_back(self, p):
        top = self.body_y - self.body_ry + p.bob + self.body_ry * (1 - p.squash) + 4
        out = ""
        for x, lean in ((-10, -1), (8, 1)):
            out += path("M%s %s Q%s %s %s %s Q%s %s %s %s Z" % (
                f(x - 5), f(top + 2), f(x + lean * 2), f(top - 14), f(x + lean * 7), f(top - 13),
                f(x + 2), f(top - 6), f(x + 5), f(top + 3)), "#f2d48a")
        return out

    def details_front(self, p):
        y = -30 + p.bob
        flap = 4 * p.swing
        out = path("M-22 %s Q0 %s 22 %s L21 %s Q0 %s -21 %s Z" % (
            f(y - 3), f(y + 3), f(y - 3), f(y + 4), f(y + 10), f(y + 4)), "#d8383a")
        out += path("M-16 %s L-30 %s L-27 %s L-12 %s Z" % (
            f(y + 2), f(y + 12 + flap), f(y + 19 + flap), f(y + 7)), "#d8383a")
        out += path("M-28 %s L-26 %s" % (f(y + 13 + flap), f(y + 17 + flap)), "none", stroke="#f2d48a", width=2)
        return out


class Sroka(Rig):
    """The chatterbox: a slim magpie with a long teal tail and a sharp beak."""
    body_y = -36
    body_rx = 17
    body_ry = 26
    hip_x = 6
    hip_y = -13
    leg = 3
    leg_colour = "#e39a2d"
    foot_colour = "#e39a2d"
    body_colour = "#23222b"
    belly_colour = "#f4f1ea"
    arm_colour = "#2f6f8f"
    shoulder = (-4, -38)
    front_shoulder = (4, -36)
    arm_len = 17
    eye_y = -50
    eye_x = (3, 12)
    eye_r = (4.0, 5.0)
    mouth_at = (16, -44)
    dead_lift = 33

    def arm_end(self, p, front):
        if p.arms == "rest":
            sx, sy = self.front_shoulder if front else self.shoulder
            return sx - 12, sy + 13 + p.bob
        return Rig.arm_end(self, p, front)

    def details_back(self, p):
        y = -24 + p.bob
        wag = 3 * p.swing
        top = self.body_y - self.body_ry + p.bob + self.body_ry * (1 - p.squash)
        crest = path("M-2 %s Q-6 %s -12 %s Q-5 %s 2 %s Z" % (f(top + 3), f(top - 6), f(top - 7), f(top - 2), f(top + 2)), "#23222b")
        return crest + path("M-10 %s L-40 %s L-38 %s L-8 %s Z" % (f(y), f(y - 14 + wag), f(y - 6 + wag), f(y + 8)), "#2f6f8f") + \
            path("M-30 %s L-38 %s" % (f(y - 9 + wag), f(y - 10 + wag)), "none", stroke="#7fd1d6", width=2)

    def body(self, p):
        # black head and breast, white belly below: a magpie's coat
        cy = self.body_y + p.bob + self.body_ry * (1 - p.squash)
        ry = self.body_ry * p.squash
        out = ellipse(0, cy, self.body_rx, ry, self.body_colour)
        out += ellipse(self.body_rx * 0.2, cy + ry * 0.42, self.body_rx * 0.62, ry * 0.42, self.belly_colour, stroke=None)
        return out

    def arm(self, p, front):
        sx, sy = self.front_shoulder if front else self.shoulder
        sy += p.bob
        ex, ey = self.arm_end(p, front)
        ang = math.degrees(math.atan2(ey - sy, ex - sx))
        length = math.hypot(ex - sx, ey - sy)
        wing = ellipse(length / 2, 0, length / 2 + 3, 5, self.arm_colour)
        wing += ellipse(length * 0.22, 0, length * 0.2, 3, "#f4f1ea", stroke=None)
        wing += path("M%s -1 L%s 1" % (f(length * 0.5), f(length * 0.9)), "none", stroke="#7fd1d6", width=1.5)
        return group(wing, "translate(%s %s) rotate(%s)" % (f(sx), f(sy), f(ang)))

    def mouth(self, p):
        mx, my = self.mouth_at
        my += p.bob
        gape = p.mouth * 10
        upper = poly([(mx - 7, my - 4), (mx + 14, my - gape * 0.35), (mx - 6, my + 1)], "#f2b23a")
        lower = poly([(mx - 6, my + 1), (mx + 11, my + 2 + gape * 0.8), (mx - 7, my + 4)], "#d9902a")
        inside = poly([(mx - 6, my + 1), (mx + 10, my - gape * 0.3), (mx + 8, my + 2 + gape * 0.8)], "#3d0f1d", stroke=None) if gape > 1 else ""
        return inside + lower + upper

    def mouth_point(self, p):
        mx, my = self.mouth_at
        return mx + 2, my + p.bob - 12


class Ropuch(Rig):
    """The loudmouth: a wide crowned toad whose throat swells as it bellows."""
    body_y = -27
    body_rx = 33
    body_ry = 22
    hip_x = 16
    hip_y = -10
    leg = 7
    leg_colour = "#4f8a2e"
    foot_colour = "#3f7024"
    body_colour = "#63a33a"
    belly_colour = "#d7d98a"
    arm_colour = "#4f8a2e"
    shoulder = (-16, -18)
    front_shoulder = (20, -16)
    arm_len = 13
    eye_y = -47
    eye_x = (-6, 12)
    eye_r = (6.5, 7.0)
    mouth_at = (22, -32)
    dead_turn = 180
    dead_lift = 71

    def details_back(self, p):
        y = self.body_y - self.body_ry + p.bob + self.body_ry * (1 - p.squash)
        out = ""
        for x in self.eye_x:
            out += ellipse(x, self.eye_y + p.bob + 3, 9, 8, self.body_colour)
        crown = [(-10, y - 3), (-12, y - 15), (-5, y - 9), (1, y - 18), (6, y - 9), (13, y - 15), (11, y - 3)]
        return out + poly(crown, "#f2c230") + circle(1, y - 18, 2.2, "#e04848", width=1.5)

    def body(self, p):
        out = Rig.body(self, p)
        cy = self.body_y + p.bob + self.body_ry * (1 - p.squash)
        for dx, dy, r in ((-18, -8, 3), (-8, -14, 2.2), (-22, 4, 2.5), (4, -16, 1.8)):
            out += circle(dx, cy + dy, r, "#4a7f2a", stroke=None)
        return out

    def mouth(self, p):
        mx, my = self.mouth_at
        my += p.bob
        sac = 3 + p.mouth * 12
        out = ellipse(mx - 8, my + 8 + sac * 0.4, sac * 1.1, sac * 0.75, "#f0e6a8") if p.mouth > 0.05 else ""
        if p.mouth <= 0.05:
            return out + path("M%s %s Q%s %s %s %s" % (f(mx - 22), f(my - 2), f(mx - 6), f(my + 4), f(mx + 10), f(my - 4)), "none")
        ry = 1.5 + p.mouth * 5
        return out + ellipse(mx - 2, my, 9, ry, "#3d0f1d") + ellipse(mx - 1, my + ry * 0.5, 5, ry * 0.4, "#e85a6b", stroke=None)

    def mouth_point(self, p):
        mx, my = self.mouth_at
        return mx + 2, my + p.bob - 16


FIGHTERS = {"default": Mowca(), "sroka": Sroka(), "ropuch": Ropuch()}
