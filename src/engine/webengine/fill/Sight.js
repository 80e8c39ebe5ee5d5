// What of a document the user can see or scroll to. First part of what Script.cpp.in puts together; it runs in a world of the
// program's own, so a page cannot change what it calls. What a page can do is to name its parts like properties of forms
// and documents ("parentNode", "body"), which then hide the real ones: those are called through their prototypes only.

// Smaller than this, in px, nobody can use an input, and in one narrower than the other nobody can read.
const kLeast = 8, kLeastText = 16;
// Fainter than this nobody sees it.
const kFaint = 0.1;
const kDeepest = 400;

const getter = (owner, name) => {
    const get = Object.getOwnPropertyDescriptor(owner.prototype, name).get;
    return object => Reflect.apply(get, object, []);
};
const method = (owner, name) => {
    const call = owner.prototype[name];
    return (object, ...values) => Reflect.apply(call, object, values);
};

const parentNode = getter(Node, 'parentNode'), nodeType = getter(Node, 'nodeType'), rootNode = method(Node, 'getRootNode'),
      ownerDocument = getter(Node, 'ownerDocument'), localName = getter(Element, 'localName'),
      assignedSlot = getter(Element, 'assignedSlot'), shadowOf = getter(Element, 'shadowRoot'),
      hostOf = getter(ShadowRoot, 'host'), attribute = method(Element, 'getAttribute'),
      rectOf = method(Element, 'getBoundingClientRect'), clientWidth = getter(Element, 'clientWidth'),
      clientHeight = getter(Element, 'clientHeight'), clientLeft = getter(Element, 'clientLeft'),
      clientTop = getter(Element, 'clientTop'), scrollLeft = getter(Element, 'scrollLeft'),
      scrollTop = getter(Element, 'scrollTop'), scrollWidth = getter(Element, 'scrollWidth'),
      scrollHeight = getter(Element, 'scrollHeight'), viewOf = getter(Document, 'defaultView'),
      bodyOf = getter(Document, 'body'), topOf = getter(Document, 'documentElement'),
      scrollerOf = getter(Document, 'scrollingElement'), documentAt = method(Document, 'elementsFromPoint'),
      shadowAt = method(ShadowRoot, 'elementsFromPoint');

/** The element around this one as it is laid out: the slot it stands in, the host of its shadow tree, or its parent. */
const around = element => {
    const slot = assignedSlot(element);
    if (slot)
        return slot;
    const parent = parentNode(element), type = parent ? nodeType(parent) : 0;
    return type === 1 ? parent : type === 11 ? hostOf(parent) : null;
};

const alphaOf = color => {
    const found = /^rgba\(.*,\s*([\d.]+)\)$/.exec(color);
    return found ? +found[1] : 1;
};

const look = (element, looks) => {
    let known = looks.get(element);
    if (known)
        return known;
    const style = getComputedStyle(element), faded = /opacity\(([\d.]+)/.exec(style.filter), flows = style.display === 'inline';
    known = {
        isVisible: style.visibility === 'visible',
        opacity: Math.min(+style.opacity, faded ? +faded[1] : 1),
        position: style.position,
        // What is placed "fixed" or "absolute" further inside is placed within this element.
        holds: style.transform !== 'none' || style.perspective !== 'none' || style.filter !== 'none' ||
            /paint|layout|strict|content/.test(style.contain),
        isCut: style.clipPath !== 'none' || style.clip !== 'auto',
        isGone: style.webkitMaskImage !== 'none' || style.contentVisibility === 'hidden',
        isLeftward: style.direction === 'rtl',
        across: flows ? 'visible' : style.overflowX,
        down: flows ? 'visible' : style.overflowY,
        ink: Math.min(alphaOf(style.color), alphaOf(style.webkitTextFillColor)),
        isPainted: alphaOf(style.backgroundColor) >= 0.5 || style.backgroundImage !== 'none',
    };
    looks.set(element, known);
    return known;
};

/** Cuts the span [from, to] of `box` to [low, high]; false when less than `share` of it, or too little, is left. */
const cut = (box, from, to, low, high, share) => {
    const size = box[to] - box[from];
    box[from] = Math.max(box[from], low);
    box[to] = Math.min(box[to], high);
    const left = box[to] - box[from];
    return left >= kLeast && left >= size * share;
};

/** The part of an axis that scrolling can bring into [low, high]. */
const scrollable = (low, high, offset, length, isLeftward) => {
    const start = low - offset + (isLeftward ? high - low - length : 0);
    return [start, start + Math.max(length, high - low)];
};

/** What an element that clips its content leaves of `at`. */
const clipBy = (element, style, at, share) => {
    if (style.across === 'visible' && style.down === 'visible')
        return true;
    const outer = rectOf(element), r = { left: outer.left + clientLeft(element), top: outer.top + clientTop(element) };
    r.right = Math.min(outer.right, r.left + clientWidth(element));
    r.bottom = Math.min(outer.bottom, r.top + clientHeight(element));
    for (const [from, to, how, offset, length] of [
             ['left', 'right', style.across, scrollLeft, scrollWidth], ['top', 'bottom', style.down, scrollTop, scrollHeight]]) {
        if (how === 'visible')
            continue;
        const scrolls = how === 'auto' || how === 'scroll';
        const [low, high] = scrolls
            ? scrollable(r[from], r[to], offset(element), length(element), from === 'left' && style.isLeftward)
            : [r[from], r[to]];
        if (!cut(at.box, from, to, low, high, share))
            return false;
        cut(at.seen, from, to, r[from], r[to], 0);
        // Scrolled into view it lies anywhere inside.
        if (scrolls)
            [at.box[from], at.box[to]] = [r[from], r[to]];
    }
    return true;
};

/** The window's own edges, which pages may scroll under. */
const clipByWindow = (element, at, looks, share) => {
    const document = ownerDocument(element), view = viewOf(document), root = topOf(document), body = bodyOf(document),
          scroller = scrollerOf(document) || root;
    let style = look(root, looks);
    const isLeftward = style.isLeftward;
    if (style.across === 'visible' && style.down === 'visible' && body)
        style = look(body, looks);
    for (const [from, to, size, how, offset, length] of [
             ['left', 'right', clientWidth(scroller), style.across, view.scrollX, scrollWidth],
             ['top', 'bottom', clientHeight(scroller), style.down, view.scrollY, scrollHeight]]) {
        const stays = at.isFixed || how === 'hidden' || how === 'clip';
        const [low, high] = stays ? [0, size]
                                  : scrollable(0, size, offset, length(scroller), from === 'left' && isLeftward);
        if (!cut(at.box, from, to, low, high, share))
            return false;
        cut(at.seen, from, to, 0, size, 0);
    }
    return true;
};

/**
 * Where the user can see an element: `seen` is the part in view now. Null when no scrolling ever shows `share` of it.
 */
const reach = (element, looks, share) => {
    const { left, top, right, bottom } = rectOf(element);
    if (right - left < kLeast || bottom - top < kLeast || !look(element, looks).isVisible)
        return null;
    const at = { box: { left, top, right, bottom }, seen: { left, top, right, bottom }, mustHit: false, isFixed: false };
    const document = ownerDocument(element), root = topOf(document), body = bodyOf(document);
    let opacity = 1, position = look(element, looks).position, inner = null;
    for (let node = element, depth = 0; node; inner = node, node = around(node)) {
        const style = look(node, looks);
        opacity *= style.opacity;
        if (++depth > kDeepest || opacity < kFaint || style.isGone)
            return null;
        if (inner && localName(node) === 'details' && attribute(node, 'open') === null && localName(inner) !== 'summary')
            return null;
        at.mustHit = at.mustHit || style.isCut;
        if (!inner || (position === 'fixed' && !style.holds) ||
            (position === 'absolute' && style.position === 'static' && !style.holds))
            continue;
        const isWindow = node === root || (node === body && look(root, looks).across === 'visible');
        if (!isWindow && !clipBy(node, style, at, share))
            return null;
        position = style.position;
    }
    at.isFixed = position === 'fixed';
    return clipByWindow(element, at, looks, share) ? at : null;
};

const kReplaced = new Set(['img', 'picture', 'canvas', 'video', 'iframe', 'frame', 'object', 'embed', 'svg', 'input', 'select',
                           'textarea', 'button', 'progress', 'meter']);

const isOpaque = (element, looks) => {
    const style = look(element, looks);
    if (style.opacity < kFaint)
        return false;
    if (style.isPainted || kReplaced.has(localName(element)))
        return true;
    return ['::before', '::after'].some(part => {
        const paint = getComputedStyle(element, part);
        return paint.content !== 'none' && (alphaOf(paint.backgroundColor) >= 0.5 || paint.backgroundImage !== 'none');
    });
};

/** Whether nothing covers an element at this point, in its own tree and in those around it. */
const isHit = (element, x, y, looks) => {
    for (let target = element;;) {
        const scope = rootNode(target), isShadow = nodeType(scope) === 11;
        let isFound = false;
        for (const other of isShadow ? shadowAt(scope, x, y) : documentAt(scope, x, y)) {
            isFound = other === target;
            if (isFound)
                break;
            if (isOpaque(other, looks))
                return false;
        }
        if (!isFound || !isShadow)
            return isFound;
        target = hostOf(scope);
    }
};

const inputShows = (element, looks) => {
    const at = reach(element, looks, 0.5), isMark = element.type === 'radio' || element.type === 'checkbox';
    if (!at || (!isMark && rectOf(element).width < kLeastText))
        return false;
    const { left, top, right, bottom } = at.seen;
    if (right - left < kLeast || bottom - top < kLeast)
        return !at.mustHit;
    // An icon may stand on one end of it.
    const hits = [0.15, 0.5, 0.85].filter(x => isHit(element, left + (right - left) * x, (top + bottom) / 2, looks));
    return hits.length >= 2;
};

/** A frame has to show as a whole: which of its inputs lies where only the frame knows. */
const frameShows = (element, looks) => {
    const at = reach(element, looks, 0.9);
    if (!at)
        return false;
    const { left, top, right, bottom } = at.seen;
    if (right - left < kLeast || bottom - top < kLeast)
        return !at.mustHit;
    const rows = Math.min(60, Math.max(1, Math.round((bottom - top) / 16)));
    for (let row = 0; row < rows; ++row) {
        for (const x of [0.25, 0.75]) {
            if (!isHit(element, left + (right - left) * x, top + (bottom - top) * (row + 0.5) / rows, looks))
                return false;
        }
    }
    return true;
};

/** Those of the inputs that the engine itself paints unhindered now, up through all frames, after `wait`. */
const paintedNow = async (inputs, wait) => {
    const painted = new Set, note = entries => {
        for (const entry of entries) {
            if (entry.isVisible)
                painted.add(entry.target);
        }
    };
    const watch = new IntersectionObserver(note, { trackVisibility: true, delay: 100 });
    inputs.forEach(input => watch.observe(input));
    await wait();
    note(watch.takeRecords());
    watch.disconnect();
    return painted;
};
