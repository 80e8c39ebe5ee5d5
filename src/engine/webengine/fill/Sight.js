// What of a document the user can see or scroll to. First part of what Script.cpp.in puts together; it runs in a world of the
// program's own, so a page cannot change what it calls. What a page can do is to name its parts like properties of forms
// and documents ("parentNode", "body"), which then hide the real ones: those are called through their prototypes only.

// Smaller than this, in px, nobody can use an input, and in one narrower than the other nobody can read.
const kLeast = 8, kLeastText = 16;
// Fainter than this nobody sees it.
const kFaint = 0.1;
const kDeepest = 400;
const kFlows = { across: 'visible', down: 'visible', clips: false };
const kAsked = 2000;
// For so many milliseconds the engine may be busy with other things than painting; a covered page it does not paint at all.
const kPatience = 300;

// Functions that take the object first, without a list of arguments to make for each call.
const freed = call => Function.prototype.call.bind(call);
const getter = (owner, name) => freed(Object.getOwnPropertyDescriptor(owner.prototype, name).get);
const method = (owner, name) => freed(owner.prototype[name]);

const parentNode = getter(Node, 'parentNode'), parentElement = getter(Node, 'parentElement'),
      contains = method(Node, 'contains'), nodeType = getter(Node, 'nodeType'), rootNode = method(Node, 'getRootNode'),
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
      topmostAt = method(Document, 'elementFromPoint'),
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
    const found = color.startsWith('rgb(') ? null : /^rgba\(.*,\s*([\d.]+)\)$/.exec(color);
    return found ? +found[1] : 1;
};

const all = (root, selector) => nodeType(root) === 9
    ? Reflect.apply(Document.prototype.querySelectorAll, root, [selector])
    : Reflect.apply(DocumentFragment.prototype.querySelectorAll, root, [selector]);

const sheetsOf = root => {
    const owner = nodeType(root) === 9 ? Document : ShadowRoot,
          sheets = Object.getOwnPropertyDescriptor(owner.prototype, 'adoptedStyleSheets');
    return { get: () => [...Reflect.apply(sheets.get, root, [])], set: list => Reflect.apply(sheets.set, root, [list]) };
};

/** Whether some element takes clicks in a way of its own. Asking is cheaper than the sheet only in a document of some size. */
const hasOddHits = root => {
    const elements = all(root, '*');
    if (elements.length > kAsked)
        return true;
    for (const element of elements) {
        if (getComputedStyle(element).pointerEvents !== 'auto')
            return true;
    }
    return false;
};

/**
 * Lets hit tests find what takes no clicks, as long as it is lifted: an element that covers an input must not hide by that.
 * Nothing is painted and no script of the page runs before drop().
 */
const makeVeil = () => {
    const roots = new Set, restore = [], stubborn = [];
    let isLifted = false;
    const raise = root => {
        // The sheet costs a new style for every element, twice.
        if (!hasOddHits(root))
            return;
        const sheets = sheetsOf(root), before = sheets.get(), view = viewOf(nodeType(root) === 9 ? root : ownerDocument(root));
        const sheet = new view.CSSStyleSheet;
        sheet.replaceSync('*{pointer-events:auto!important}');
        sheets.set([...before, sheet]);
        restore.push(() => sheets.set(before));
        let looked = 0;
        for (const element of all(root, '[style]')) {
            if (++looked > 3000)
                break;
            if (getComputedStyle(element).pointerEvents === 'none')
                stubborn.push(element);
        }
    };
    return {
        stubborn,
        isLifted: () => isLifted,
        add: root => {
            if (roots.has(root))
                return;
            roots.add(root);
            if (isLifted)
                raise(root);
        },
        lift: () => {
            if (isLifted)
                return;
            isLifted = true;
            roots.forEach(raise);
        },
        drop: () => {
            isLifted = false;
            restore.splice(0).forEach(call => call());
            stubborn.length = 0;
        },
    };
};

// What is known of elements and documents during one look at the page, in the map that all of the following share.
const newLooks = (veil, traits = { isFlat: false, hasInert: true, inputs: 0 }) => {
    const looks = new Map;
    looks.veil = veil;
    looks.traits = traits;
    // For isPlain(), which looks at many and asks little: what it knows, and how many rules it may read, as long as that takes
    // less than asking each element.
    looks.plain = new Map;
    looks.veils = new Map;
    looks.rulesLeft = 2 * traits.inputs;
    return looks;
};

// Each question to a style has its price, so each is asked only where it counts.
const glance = (element, looks) => {
    let known = looks.get(element);
    if (!known) {
        known = { element, style: getComputedStyle(element), position: null, isHolder: null, flow: null, within: null,
                  shows: null };
        looks.set(element, known);
    }
    return known;
};

// The last one is that of graphics, which can stand around an input as well.
const isMasked = style => style.webkitMaskImage !== 'none' || style.webkitMaskBoxImageSource !== 'none' || style.mask !== 'none';

const look = (element, looks) => {
    const known = glance(element, looks);
    if (known.position !== null)
        return known;
    const style = known.style, filter = style.filter, position = style.position;
    const isOut = position === 'absolute' || position === 'fixed';
    known.position = position;
    known.opacity = +style.opacity;
    known.isCut = style.clipPath !== 'none' || (isOut && style.clip !== 'auto');
    known.isGone = isMasked(style) || style.contentVisibility === 'hidden';
    if (filter !== 'none') {
        const faded = /opacity\(([\d.]+)/.exec(filter);
        known.opacity = Math.min(known.opacity, faded ? +faded[1] : 1);
    }
    return known;
};

const isVisible = known => known.style.visibility === 'visible';
const isLeftward = known => known.style.direction === 'rtl';

/** Whether what is placed "fixed" or "absolute" further inside is placed within this element. */
const holds = known => {
    const style = known.style;
    if (known.isHolder === null)
        known.isHolder = style.filter !== 'none' || style.transform !== 'none' || style.perspective !== 'none' ||
            /paint|layout|strict|content/.test(style.contain);
    return known.isHolder;
};

/** What an element does with content that is larger than it. */
const flowOf = known => {
    if (known.flow)
        return known.flow;
    const overflow = known.style.overflow, [across, down = across] = overflow.split(' ');
    known.flow = overflow === 'visible' || known.style.display === 'inline' ? kFlows : { across, down, clips: true };
    return known.flow;
};

/** The window that a document is shown in, and how it scrolls. */
const windowOf = (document, looks) => {
    let known = looks.get(document);
    if (known)
        return known;
    const view = viewOf(document), root = topOf(document), body = bodyOf(document), scroller = scrollerOf(document) || root;
    const style = look(root, looks), isBodys = !flowOf(style).clips && body !== null;
    const how = flowOf(isBodys ? look(body, looks) : style);
    known = { root, body: isBodys ? body : null, sides: [
        ['left', 'right', clientWidth(scroller), view.scrollX, scrollWidth(scroller), how.across, isLeftward(style)],
        ['top', 'bottom', clientHeight(scroller), view.scrollY, scrollHeight(scroller), how.down, false],
    ].map(([from, to, size, offset, length, flow, isBack]) => ({ from, to, size,
        stays: flow === 'hidden' || flow === 'clip', range: scrollable(0, size, offset, length, isBack) })) };
    looks.set(document, known);
    return known;
};

const kOutside = { opacity: 1, isGone: false, mustHit: false, isShut: false, style: null, outer: null, clips: null,
                   stays: false };
const kNowhere = { ...kOutside, isGone: true };
const kPinned = { ...kOutside, stays: true };

/** The place of a box by how it is positioned, which says what clips it, from the inside out, and whether it stays there. */
const placeIn = (outer, position) => {
    const isFixed = position === 'fixed';
    if (isFixed || position === 'absolute') {
        while (outer.style && !(!isFixed && outer.style.position !== 'static') && !holds(outer.style))
            outer = outer.outer;
    }
    return isFixed && !outer.style ? kPinned : outer;
};

/** What holds for everything inside an element, from what holds around it. */
const inside = (style, outer, looks) => {
    const element = style.element, name = localName(element), place = placeIn(outer, style.position);
    let clips = place.clips;
    if (flowOf(style).clips) {
        const { root, body } = windowOf(ownerDocument(element), looks);
        if (element !== root && element !== body)
            clips = { style, next: clips };
    }
    return {
        opacity: outer.opacity * style.opacity,
        isGone: outer.isGone || style.isGone || (outer.isShut && name !== 'summary'),
        mustHit: outer.mustHit || style.isCut,
        isShut: name === 'details' && attribute(element, 'open') === null,
        style, outer, clips, stays: place.stays,
    };
};

const within = (element, looks) => {
    const chain = [];
    let node = element;
    for (; node && !look(node, looks).within; node = around(node)) {
        if (chain.push(look(node, looks)) > kDeepest)
            return kNowhere;
    }
    let known = node ? look(node, looks).within : kOutside;
    while (chain.length)
        known = chain[chain.length - 1].within = inside(chain.pop(), known, looks);
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
const scrollable = (low, high, offset, length, isBack) => {
    const start = low - offset + (isBack ? high - low - length : 0);
    return [start, start + Math.max(length, high - low)];
};

/** What an element that clips its content leaves of `at`. */
const clipBy = (style, at, share) => {
    const element = style.element, outer = rectOf(element);
    const r = { left: outer.left + clientLeft(element), top: outer.top + clientTop(element) };
    r.right = Math.min(outer.right, r.left + clientWidth(element));
    r.bottom = Math.min(outer.bottom, r.top + clientHeight(element));
    const { across, down } = flowOf(style);
    for (const [from, to, how, offset, length] of [
             ['left', 'right', across, scrollLeft, scrollWidth], ['top', 'bottom', down, scrollTop, scrollHeight]]) {
        if (how === 'visible')
            continue;
        const scrolls = how === 'auto' || how === 'scroll';
        const [low, high] = scrolls
            ? scrollable(r[from], r[to], offset(element), length(element), from === 'left' && isLeftward(style))
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

/**
 * Where the user can see an element: `seen` is the part in view now. Null when no scrolling ever shows `share` of it.
 */
const reach = (element, looks, share) => {
    const { left, top, right, bottom } = rectOf(element);
    const style = look(element, looks);
    if (right - left < kLeast || bottom - top < kLeast || style.isGone || !isVisible(style))
        return null;
    const outer = within(around(element), looks);
    if (outer.isGone || outer.isShut || outer.opacity * style.opacity < kFaint)
        return null;
    const at = { width: right - left, box: { left, top, right, bottom }, seen: { left, top, right, bottom },
                 mustHit: outer.mustHit || style.isCut };
    const { clips: first, stays } = placeIn(outer, style.position);
    for (let clips = first; clips; clips = clips.next) {
        if (!clipBy(clips.style, at, share))
            return null;
    }
    for (const side of windowOf(ownerDocument(element), looks).sides) {
        const [low, high] = stays || side.stays ? [0, side.size] : side.range;
        if (!cut(at.box, side.from, side.to, low, high, share))
            return null;
        cut(at.seen, side.from, side.to, 0, side.size, 0);
    }
    return at;
};

const kReplaced = new Set(['img', 'picture', 'canvas', 'video', 'iframe', 'frame', 'object', 'embed', 'svg', 'input', 'select',
                           'textarea', 'button', 'progress', 'meter']);

const isOpaque = (element, looks) => {
    if (look(element, looks).opacity < kFaint)
        return false;
    return kReplaced.has(localName(element)) || [undefined, '::before', '::after'].some(part => {
        const paint = getComputedStyle(element, part);
        return (!part || paint.content !== 'none') &&
            (alphaOf(paint.backgroundColor) >= 0.5 || paint.backgroundImage !== 'none');
    });
};

/** Whether nothing covers an element at this point, in its own tree and in those around it. */
const isHit = (element, x, y, looks) => {
    looks.veil.lift();
    for (const other of looks.veil.stubborn) {
        const r = rectOf(other);
        if (x >= r.left && x < r.right && y >= r.top && y < r.bottom && !contains(other, element) && isOpaque(other, looks))
            return false;
    }
    if (topmostAt(ownerDocument(element), x, y) === element)
        return true;
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

const isMark = input => input.type === 'radio' || input.type === 'checkbox';

const inputShows = (element, looks) => {
    const at = reach(element, looks, 0.5);
    if (!at || (at.width < kLeastText && !isMark(element)))
        return false;
    const { left, top, right, bottom } = at.seen;
    if (right - left < kLeast || bottom - top < kLeast)
        return !at.mustHit;
    // A page that knew the places could leave holes for them in what covers its input.
    const near = share => share + (Math.random() - 0.5) / 5;
    const isFree = x => isHit(element, left + (right - left) * near(x), top + (bottom - top) * near(0.5), looks);
    return isFree(0.5) || (isFree(0.15) && isFree(0.85));
};

/** A frame has to show as a whole: which of its inputs lies where only the frame knows. */
const frameShows = (element, looks) => {
    const at = reach(element, looks, 0.9);
    if (!at)
        return false;
    const { left, top, right, bottom } = at.seen;
    if (right - left < kLeast || bottom - top < kLeast)
        return !at.mustHit;
    const rows = Math.min(60, Math.max(2, Math.round((bottom - top) / 16)));
    for (let row = 0; row < rows; ++row) {
        const x = row % 2 ? 0.7 : 0.3;
        if (!isHit(element, left + (right - left) * x, top + (bottom - top) * (row + 0.5) / rows, looks))
            return false;
    }
    return true;
};

// --- what the engine itself says ---

/** The frame element around a document that this script has come into; null for the outermost one, where it began. */
const frameOf = inner => inner === document ? null : viewOf(inner).frameElement;

const kShapes = /mask|clip-path/;
// In an attribute a backslash can write a property in another way; graphics have attributes and animations of their own.
const kShapeStyle = /mask|clip-path|\\/i, kGraphicShapes = '[mask],[clip-path],animate,set';
const animationsOf = method(Document, 'getAnimations'), sheetsIn = getter(Document, 'styleSheets');

/** Whether nothing in a document can have a mask or a clip path: no attribute, animation or one of few plain rules names it. */
const isShapeless = (inner, looks) => {
    if (animationsOf(inner).length)
        return false;
    for (const element of all(inner, '[style]')) {
        if (--looks.rulesLeft < 0 || kShapeStyle.test(attribute(element, 'style')))
            return false;
    }
    if (all(inner, 'svg').length && all(inner, kGraphicShapes).length)
        return false;
    for (const sheet of [...sheetsIn(inner), ...sheetsOf(inner).get()]) {
        let rules;
        try {
            rules = sheet.cssRules;
        } catch {
            // One of another origin says nothing.
            return false;
        }
        looks.rulesLeft -= rules.length;
        if (looks.rulesLeft < 0)
            return false;
        for (const rule of rules) {
            if (rule.type !== 1 || kShapes.test(rule.style.cssText))
                return false;
        }
    }
    return true;
};

/** What may stand between the inputs of a document and what the engine says of them. */
const veilsOf = (inner, looks) => {
    let known = looks.veils.get(inner);
    if (!known) {
        const { isFlat, hasInert } = looks.traits, hasShapes = !isFlat || !isShapeless(inner, looks);
        known = { isOutermost: inner === document, hasShapes, isBare: isFlat && !hasInert && !hasShapes && inner !== document };
        looks.veils.set(inner, known);
    }
    return known;
};

/** Whether an element takes away nothing from what is in it, as far as the engine does not see it. */
const isClear = (element, style, { isOutermost, hasShapes }, { hasInert }) =>
    !(hasShapes && (style.clipPath !== 'none' || isMasked(style))) && !(isOutermost && style.position === 'fixed') &&
    !(hasInert && attribute(element, 'inert') !== null);

/**
 * Whether what the engine says of everything inside an element holds: it does not see masks and clip paths, nor what cannot be
 * used, and takes what is fixed outside the window for something that scrolls into it.
 */
const isPlain = (element, looks) => {
    const { plain, traits } = looks, inner = ownerDocument(element), veils = veilsOf(inner, looks), chain = [];
    let node = veils.isBare ? null : element, known;
    while (node && (known = plain.get(node)) === undefined) {
        if (chain.push(node) > kDeepest)
            return false;
        node = traits.isFlat ? parentElement(node) : around(node);
    }
    if (!node) {
        known = plain.get(inner);
        if (known === undefined) {
            const frame = frameOf(inner);
            known = !frame || isPlain(frame, looks);
            plain.set(inner, known);
        }
    }
    while (chain.length) {
        const one = chain.pop();
        known = known && isClear(one, getComputedStyle(one), veils, traits);
        plain.set(one, known);
    }
    return known;
};

/** How far the window can be scrolled to each side, as an observer takes it. */
const marginOf = looks => {
    const reaches = windowOf(document, looks).sides.map(({ size, stays, range: [low, high] }) =>
        stays ? [0, 0] : [Math.max(0, -low), Math.max(0, high - size)]);
    const [[left, right], [top, bottom]] = reaches;
    return [top, right, bottom, left].map(length => Math.ceil(length) + 'px').join(' ');
};

/**
 * Those of the inputs that the engine paints whole and with nothing over them or over the frames around them, for isPainted();
 * those below the edge of the window as well where `margin` says so.
 */
function* paintedOf(inputs, margin) {
    const painted = new Map, waiting = new Set(inputs), note = entries => {
        for (const entry of entries) {
            waiting.delete(entry.target);
            if (entry.isVisible && entry.intersectionRatio > 0.99)
                painted.set(entry.target, entry);
            else
                painted.delete(entry.target);
        }
    };
    const watch = new IntersectionObserver(note, { trackVisibility: true, delay: 100, rootMargin: margin });
    for (const input of inputs)
        watch.observe(input);
    for (let waited = 0; waiting.size && waited < kPatience; waited += 30) {
        yield pause(30);
        note(watch.takeRecords());
    }
    watch.disconnect();
    return painted;
}

/** Whether the user sees an input, by what the engine has said of it. */
const isPainted = (input, entry, style, looks) => {
    const { width, height } = entry.boundingClientRect, { traits } = looks;
    if (height < kLeast || width < kLeast || (width < kLeastText && !isMark(input)))
        return false;
    const outer = traits.isFlat ? parentElement(input) : around(input);
    return outer && isClear(input, style, veilsOf(ownerDocument(input), looks), traits) && isPlain(outer, looks);
};

/** Whether an input and the frames that it lies in show, by looking at all that is around it. */
const isFound = (input, looks) => {
    for (let frame = frameOf(ownerDocument(input)); frame; frame = frameOf(ownerDocument(frame))) {
        const known = glance(frame, looks);
        if (known.shows === null)
            known.shows = frameShows(frame, looks);
        if (!known.shows)
            return false;
    }
    return inputShows(input, looks);
};
